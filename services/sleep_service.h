// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "services/awake_clock.h"
#include "services/sleep_monitor.h"
#include "store/data_operations_service_protocol.h"

namespace hearthmark::services {

// Keeps the time for which the machine sleeps out of the running intervals: stamps them before,
// stops the clock, and takes the time out when the machine has woken. Main thread.
class SleepService final : public std::enable_shared_from_this<SleepService> {
 public:
    SleepService(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                 std::shared_ptr<SleepMonitor> sleepMonitor, std::shared_ptr<AwakeClock> clock);

    // Called once, at launch.
    void start();

 private:
    void sleep();
    void wake();

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<SleepMonitor> sleepMonitor_;
    std::shared_ptr<AwakeClock> clock_;
};

}  // namespace hearthmark::services
