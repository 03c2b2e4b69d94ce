// SPDX-License-Identifier: MIT
#include "services/sleep_service.h"

#include <utility>

#include "base/weakly.h"

namespace hearthmark::services {

namespace {

// What is shorter is not worth a save, and is taken out once it has added up.
constexpr base::Seconds kNoticeable{1};
// How long a machine may take to fall asleep. When it is still awake then, or again, nobody will
// tell of the end of what was announced.
constexpr base::Seconds kPatience{60};

}  // namespace

SleepService::SleepService(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<SleepMonitor> sleepMonitor, std::shared_ptr<AwakeClock> clock,
    UptimeReader uptime)
    : dataOperationsService_(std::move(dataOperationsService)),
      sleepMonitor_(std::move(sleepMonitor)),
      clock_(std::move(clock)),
      uptime_(std::move(uptime)),
      excluded_(uptime_().asleep) {}

void SleepService::start() {
    sleepMonitor_->start({.willSleep = base::weakly(weak_from_this(), &SleepService::sleep),
                          .didWake = base::weakly(weak_from_this(), &SleepService::wake)});
}

void SleepService::sleep() {
    if (!clock_->isStopped()) {
        excludeTimeAsleep();
        announcedAt_ = uptime_().awake;
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
        excluded_ = uptime_().asleep;
    }
}

bool SleepService::mayTick() {
    if (clock_->isStopped() && uptime_().awake - announcedAt_ > kPatience) {
        clock_->resume();
    }
    return !clock_->isStopped() && !excludeTimeAsleep();
}

bool SleepService::excludeTimeAsleep() {
    const base::Seconds asleep = uptime_().asleep - excluded_;
    if (asleep < kNoticeable) {
        return false;
    }
    excluded_ += asleep;
    const base::Date now = clock_->now();
    dataOperationsService_->excludeTime(now + -asleep, now);
    return true;
}

}  // namespace hearthmark::services
