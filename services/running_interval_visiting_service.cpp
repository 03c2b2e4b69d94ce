// SPDX-License-Identifier: MIT
#include "services/running_interval_visiting_service.h"

#include <utility>

#include "base/weakly.h"

namespace hearthmark::services {

namespace {

constexpr base::Seconds kVisitInterval{60};

}  // namespace

RunningIntervalVisitingService::RunningIntervalVisitingService(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock)
    : dataOperationsService_(std::move(dataOperationsService)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)) {}

void RunningIntervalVisitingService::start() {
    timeKeeper_ = timeKeepingProvider_->makeTimer(
        kVisitInterval, Repeats::yes, base::weakly(weak_from_this(), [](auto& self) {
            self.dataOperationsService_->markRunningIntervalsVisited(self.clock_->now());
        }));
}

}  // namespace hearthmark::services
