// SPDX-License-Identifier: MIT
#include "platform/session/machine_uptime.h"

#include <chrono>
#include <ctime>

namespace hearthmark::platform {

namespace {

constexpr base::Seconds kTogether{0.01};

base::Seconds read(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

services::Uptime machineUptime() {
    base::Seconds all{0};
    base::Seconds awake{0};
    // What kept this process from running between the two would look like sleep.
    do {
        awake = read(CLOCK_MONOTONIC);  // stands while the machine sleeps
        all = read(CLOCK_BOOTTIME);
    } while (read(CLOCK_MONOTONIC) - awake > kTogether);
    return {.awake = awake, .asleep = all - awake};
}

}  // namespace hearthmark::platform
