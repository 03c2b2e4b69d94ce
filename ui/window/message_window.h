// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::ui {

// Shows a message in a window of its own and returns when it has been closed: for a process that
// has no main window. Requires a QGuiApplication whose event loop does not run.
void showMessageWindow(const std::string& message);

}  // namespace hearthmark::ui
