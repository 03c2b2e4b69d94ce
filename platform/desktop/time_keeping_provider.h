// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "services/ports/time_keeping.h"

namespace hearthmark::platform {

// Timers of the event loop of the thread that makes them, precise to the millisecond and without
// drift. They go on while a menu is open or a window is dragged.
class TimeKeepingProvider final : public services::TimeKeepingProviderProtocol {
 public:
    // Requires a QCoreApplication, which owns the timers.
    std::shared_ptr<services::TimeKeeping> makeTimer(base::Seconds interval,
                                                     services::Repeats repeats,
                                                     std::function<void()> action) override;
};

}  // namespace hearthmark::platform
