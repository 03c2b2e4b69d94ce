// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace hearthmark::platform {

// Whether a person can be shown a window: an X server or a Wayland compositor takes connections, of
// the kind that was chosen if one was. Needs no QCoreApplication.
bool hasDisplay();

// Whether the desktop is one of Wayland, of which XWayland shows programs of X11. One that runs
// beside an X session is not meant where nothing names it.
bool isOnWayland();

// Whether the toolkit, which gets these arguments, can make windows. It would abort a process where
// it cannot. What it was told of displays beside those two it has to know itself.
bool canMakeWindows(std::span<char*> arguments);

}  // namespace hearthmark::platform
