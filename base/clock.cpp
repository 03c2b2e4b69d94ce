// SPDX-License-Identifier: MIT
#include "base/clock.h"

#include <chrono>

namespace hearthmark::base {

Date SystemClock::now() const {
    // Subtracted as integers: a double of nanoseconds since 1970 has lost its microseconds.
    return Date(std::chrono::system_clock::now() - kReferenceDay);
}

}  // namespace hearthmark::base
