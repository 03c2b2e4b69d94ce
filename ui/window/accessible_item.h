// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

#include "ui/window/accessibility.h"

class QObject;
class QQuickItem;

namespace hearthmark::ui {

// What assistive technology is told of an item, which must be accessible; owned by the toolkit.
QAccessibleInterface* makeAccessibleItem(QQuickItem& item, KeepFromMemory keep);

// Whether a text of the item changes each second by the count, as the item says itself.
bool ticks(const QObject* item);

// From Qt 6.8 on a list lets readers know only of the rows in sight, and now and then not of one
// that has come back. This makes an item accessible that is a row. What is out of sight its states
// say.
void tellOfRow(QQuickItem& item);

}  // namespace hearthmark::ui
