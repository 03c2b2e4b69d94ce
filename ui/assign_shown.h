// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <utility>

#include "livedata/block.h"

namespace hearthmark::ui {

// Takes a shown value over and notes the role where it differs.
template <class Value>
void assignShown(Value& shown, Value next, int role, QList<int>& changedRoles) {
    if (shown != next) {
        shown = std::move(next);
        changedRoles.append(role);
    }
}

// Runs an action that may be absent, by a handle of its own: it may destroy the row that carries
// it.
inline void run(livedata::Action action) {
    if (const livedata::Action kept = std::move(action)) {
        (*kept)();
    }
}

}  // namespace hearthmark::ui
