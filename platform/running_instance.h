// SPDX-License-Identifier: MIT
#pragma once

namespace hearthmark::platform {

// Asks the instance that is already running to bring its window to the front, over the session bus,
// for at most about 800 ms: it may still be starting. False where it cannot be asked. Requires a
// QCoreApplication; needs no display.
bool activateRunningInstance();

}  // namespace hearthmark::platform
