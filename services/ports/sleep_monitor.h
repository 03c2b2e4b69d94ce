// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace hearthmark::services {

// Tells when the machine goes to sleep and when it has woken. Main thread.
class SleepMonitor {
 public:
    struct Handlers {
        // The machine waits, for a moment, until this returns.
        std::function<void()> willSleep;
        // Also called when nobody is left who would tell of the waking.
        std::function<void()> didWake;
    };

    virtual ~SleepMonitor() = default;

    // Called once. Where the system tells nothing of sleep, nothing is called.
    virtual void start(Handlers handlers) = 0;
};

}  // namespace hearthmark::services
