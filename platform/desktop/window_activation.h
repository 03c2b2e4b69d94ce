// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QWindow;

namespace hearthmark::platform {

// Shows the window before all others and has the keyboard's input go to it. The token, which may be
// empty, is what the desktop gave for that; else one that stands in the environment is taken. Main
// thread.
//
// A Wayland compositor does neither without a token that it likes, and tells nobody. Windows that
// come anew it puts in front, so one that is still behind is hidden and shown again.
void bringToFront(QWindow& window, const std::string& activationToken);

}  // namespace hearthmark::platform
