// SPDX-License-Identifier: MIT
#include "base/clock.h"

#include <chrono>

namespace hearthmark::base {

namespace {

constexpr std::chrono::sys_days kReferenceDate{std::chrono::year{2001} / 1 / 1};

}  // namespace

Date SystemClock::now() const {
    // Subtracted as integers: a double of nanoseconds since 1970 has lost its microseconds.
    return Date(std::chrono::system_clock::now() - kReferenceDate);
}

}  // namespace hearthmark::base
