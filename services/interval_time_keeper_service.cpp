// SPDX-License-Identifier: MIT
#include "services/interval_time_keeper_service.h"

#include <utility>

#include "base/weakly.h"

namespace hearthmark::services {

namespace {

constexpr base::Seconds kTick{1};

}  // namespace

IntervalTimeKeeperService::IntervalTimeKeeperService(
    std::shared_ptr<store::IntervalFinishing> intervalFinisher,
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider)
    : intervalFinisher_(std::move(intervalFinisher)),
      timeKeepingProvider_(std::move(timeKeepingProvider)) {}

void IntervalTimeKeeperService::start() {
    timeKeeper_ = timeKeepingProvider_->makeTimer(kTick, Repeats::yes,
                                                  base::weakly(weak_from_this(), [](auto& self) {
                                                      self.intervalFinisher_->finishDueIntervals();
                                                  }));
}

}  // namespace hearthmark::services
