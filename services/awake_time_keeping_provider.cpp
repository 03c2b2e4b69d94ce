// SPDX-License-Identifier: MIT
#include "services/awake_time_keeping_provider.h"

#include <utility>

namespace hearthmark::services {

AwakeTimeKeepingProvider::AwakeTimeKeepingProvider(
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<SleepService> sleepService)
    : timeKeepingProvider_(std::move(timeKeepingProvider)),
      sleepService_(std::move(sleepService)) {}

std::shared_ptr<TimeKeeping> AwakeTimeKeepingProvider::makeTimer(base::Seconds interval,
                                                                 Repeats repeats,
                                                                 std::function<void()> action) {
    return timeKeepingProvider_->makeTimer(interval, repeats,
                                           [sleep = sleepService_, action = std::move(action)] {
                                               if (sleep->mayTick()) {
                                                   action();
                                               }
                                           });
}

}  // namespace hearthmark::services
