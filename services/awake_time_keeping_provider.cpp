// SPDX-License-Identifier: MIT
#include "services/awake_time_keeping_provider.h"

#include <utility>

namespace hearthmark::services {

AwakeTimeKeepingProvider::AwakeTimeKeepingProvider(
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const AwakeClock> clock)
    : timeKeepingProvider_(std::move(timeKeepingProvider)), clock_(std::move(clock)) {}

std::shared_ptr<TimeKeeping> AwakeTimeKeepingProvider::makeTimer(base::Seconds interval,
                                                                 Repeats repeats,
                                                                 std::function<void()> action) {
    return timeKeepingProvider_->makeTimer(interval, repeats,
                                           [clock = clock_, action = std::move(action)] {
                                               if (!clock->isStopped()) {
                                                   action();
                                               }
                                           });
}

}  // namespace hearthmark::services
