// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

#include <chrono>

namespace hearthmark::ctl {

inline std::chrono::microseconds timeOf(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

// Since the machine was started, as the bus library counts it.
inline std::chrono::microseconds timeAwake() {
    return timeOf(CLOCK_MONOTONIC);
}

inline std::chrono::microseconds timeAsleep() {
    return timeOf(CLOCK_BOOTTIME) - timeAwake();
}

}  // namespace hearthmark::ctl
