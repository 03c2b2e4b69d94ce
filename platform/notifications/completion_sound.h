// SPDX-License-Identifier: MIT
#pragma once

namespace hearthmark::platform {

// Plays the desktop's sound for something that is complete. Returns at once; a machine that cannot
// play it stays silent. The first call loads the libraries for it.
void playCompletionSound();

}  // namespace hearthmark::platform
