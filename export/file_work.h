// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace hearthmark::exporting {

// How work on a file that may take long says how far it is, and learns that nobody wants it any
// more. Both are called often, on the thread that works; either may be missing.
struct FileWork {
    // From 0 to 1.
    std::function<void(double share)> tellProgress;
    std::function<bool()> isCancelled;
};

}  // namespace hearthmark::exporting
