// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::platform {

// Asks the instance that holds the lock of that name to bring its window to the front, over the
// socket or the session bus, for at most about 800 ms: it may still be starting. False where it
// cannot be asked. Requires a QCoreApplication; needs no display.
bool activateRunningInstance(const std::string& instance);

}  // namespace hearthmark::platform
