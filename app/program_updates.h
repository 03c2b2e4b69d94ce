// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace hearthmark::app {

// Where updates come from, as the build of this program says; the tests link others.
struct ProgramUpdates {
    // Empty where there are no updates.
    const char* feed;
    const char* publicKey;
    // That the server of the feed has for each 100 KB.
    std::chrono::seconds patience;
};

ProgramUpdates programUpdates();

}  // namespace hearthmark::app
