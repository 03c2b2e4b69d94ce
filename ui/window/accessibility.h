// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

namespace hearthmark::ui {

// Mends in what the toolkit tells assistive technology what is missing or too much there. It says
// of disabled items that they are disabled, where the toolkit does not say so itself. It announces
// a notification that appears, where there are announcements. And it does not tell each second of a
// time that runs: where an item has the property "ticks" with the value true, a change of its texts
// causes no event. Whoever asks gets the present text.
//
// Some readers remember a text once they have read it. Each time one of these items was read, the
// function is called with it and the texts that it has, to make them forget. The function must not
// read them itself.
//
// For the whole process. Called once, after the application object was made and before the first
// window.
using KeepFromMemory = void (*)(QAccessibleInterface& item, const QString& name,
                                const QString& description);
void prepareAccessibility(KeepFromMemory keepFromMemory);

}  // namespace hearthmark::ui
