// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "services/ports/time_keeping.h"
#include "services/sleep_service.h"

namespace hearthmark::services {

// Timers that do nothing while the machine goes to sleep, and notice when it has slept.
class AwakeTimeKeepingProvider final : public TimeKeepingProviderProtocol {
 public:
    AwakeTimeKeepingProvider(std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
                             std::shared_ptr<SleepService> sleepService);

    std::shared_ptr<TimeKeeping> makeTimer(base::Seconds interval, Repeats repeats,
                                           std::function<void()> action) override;

 private:
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<SleepService> sleepService_;
};

}  // namespace hearthmark::services
