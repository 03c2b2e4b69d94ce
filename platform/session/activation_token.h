// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::platform {

// What the desktop gave this process to let a window of it take the focus; empty where it gave
// none. Takes it out of the environment, since it is not for what this process starts. Once the
// toolkit is there: its X11 plugin looks there for the older name of it.
std::string takeActivationToken();

}  // namespace hearthmark::platform
