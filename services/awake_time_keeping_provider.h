// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "services/awake_clock.h"
#include "services/time_keeping.h"

namespace hearthmark::services {

// Timers that do nothing while the clock is stopped.
class AwakeTimeKeepingProvider final : public TimeKeepingProviderProtocol {
 public:
    AwakeTimeKeepingProvider(std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
                             std::shared_ptr<const AwakeClock> clock);

    std::shared_ptr<TimeKeeping> makeTimer(base::Seconds interval, Repeats repeats,
                                           std::function<void()> action) override;

 private:
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const AwakeClock> clock_;
};

}  // namespace hearthmark::services
