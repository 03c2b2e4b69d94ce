// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::store {

// What the person has to see of the store, although the program goes on: a short sentence without
// its full stop, and what belongs to it.
struct StoreNotice {
    std::string title;
    std::string body;
    // Something could not be done, and is tried again.
    bool isFailure = false;
};

}  // namespace hearthmark::store
