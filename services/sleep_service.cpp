// SPDX-License-Identifier: MIT
#include "services/sleep_service.h"

#include <utility>

namespace hearthmark::services {

SleepService::SleepService(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<SleepMonitor> sleepMonitor, std::shared_ptr<AwakeClock> clock)
    : dataOperationsService_(std::move(dataOperationsService)),
      sleepMonitor_(std::move(sleepMonitor)),
      clock_(std::move(clock)) {}

void SleepService::start() {
    const auto handler = [weak = weak_from_this()](void (SleepService::*handle)()) {
        return [weak, handle] {
            if (const auto self = weak.lock()) {
                ((*self).*handle)();
            }
        };
    };
    sleepMonitor_->start(
        {.willSleep = handler(&SleepService::sleep), .didWake = handler(&SleepService::wake)});
}

void SleepService::sleep() {
    if (!clock_->isStopped()) {
        clock_->stop();
        // A machine that dies asleep loses nothing then.
        dataOperationsService_->markRunningIntervalsVisited(clock_->now());
    }
}

void SleepService::wake() {
    if (clock_->isStopped()) {
        const base::Date asleepSince = clock_->now();
        clock_->resume();
        dataOperationsService_->excludeTime(asleepSince, clock_->now());
    }
}

}  // namespace hearthmark::services
