// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "livedata/block.h"

namespace hearthmark::ui {

// Runs an action that may be absent, by a handle of its own: it may destroy the row that carries
// it.
inline void run(livedata::Action action) {
    if (const livedata::Action kept = std::move(action)) {
        (*kept)();
    }
}

}  // namespace hearthmark::ui
