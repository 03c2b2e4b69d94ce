// SPDX-License-Identifier: MIT
#pragma once

namespace hearthmark::store {

// Finishes what has reached its maximum.
class IntervalFinishing {
 public:
    virtual ~IntervalFinishing() = default;

    virtual void finishDueIntervals() = 0;
};

}  // namespace hearthmark::store
