// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace hearthmark::platform {

// Opens a file or a folder with the program that the person has for it. False where there is none.
// Requires a QGuiApplication.
bool openWithDesktop(const QString& path);

}  // namespace hearthmark::platform
