// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "base/date.h"

namespace hearthmark::services {

// The handle of one timer. Dropping it does not stop the timer.
class TimeKeeping {
 public:
    virtual ~TimeKeeping() = default;

    // Stops the timer for good, also from within its action. On a stopped one it does nothing.
    virtual void invalidate() = 0;
};

enum class Repeats { no, yes };

// Makes timers.
class TimeKeepingProviderProtocol {
 public:
    virtual ~TimeKeepingProviderProtocol() = default;

    // A timer that is already running on the main thread: it fires one interval from now, and if it
    // repeats, every interval, until it is invalidated or the process ends.
    virtual std::shared_ptr<TimeKeeping> makeTimer(base::Seconds interval, Repeats repeats,
                                                   std::function<void()> action) = 0;
};

// Makes such providers, one for whoever wants one of its own.
using TimeKeepingProviderMaker = std::function<std::shared_ptr<TimeKeepingProviderProtocol>()>;

}  // namespace hearthmark::services
