// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::platform {

// Tells an X11 desktop that what it is waiting for has come, so that it no longer shows a busy
// pointer. The toolkit does so only for the first window of a process that was started for it.
// Elsewhere, and for an empty id, nothing. Requires a QGuiApplication.
void endStartupSequence(const std::string& id);

}  // namespace hearthmark::platform
