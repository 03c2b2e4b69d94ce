// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QImage>

namespace hearthmark::ui {

// The program's icon for panels that ask the window for it, in the sizes that they use. Requires a
// QGuiApplication.
QIcon windowIcon();

// The largest of its pictures; requires nothing.
QImage programPicture();

}  // namespace hearthmark::ui
