// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "services/awake_clock.h"
#include "services/ports/sleep_monitor.h"
#include "services/ports/uptime.h"
#include "store/data_operations_service_protocol.h"

namespace hearthmark::services {

// Keeps the time for which the machine sleeps out of the running intervals. Where a sleep is
// announced it stamps them before, stops the clock, and takes the time out when the machine has
// woken; what nobody announced it finds at the next tick, by the clocks. Main thread.
class SleepService final : public std::enable_shared_from_this<SleepService> {
 public:
    SleepService(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                 std::shared_ptr<SleepMonitor> sleepMonitor, std::shared_ptr<AwakeClock> clock,
                 UptimeReader uptime);

    // Called once, at launch.
    void start();

    // To be asked at each tick before it does anything, and whether it may: not while the machine
    // goes to sleep, nor at the tick that finds that it has slept.
    bool mayTick();

 private:
    void sleep();
    void wake();
    // Whether there was time asleep that had not been taken out.
    bool excludeTimeAsleep();

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<SleepMonitor> sleepMonitor_;
    std::shared_ptr<AwakeClock> clock_;
    UptimeReader uptime_;
    // What of the time asleep is in no interval.
    base::Seconds excluded_;
    // By the time awake.
    base::Seconds announcedAt_{0};
};

}  // namespace hearthmark::services
