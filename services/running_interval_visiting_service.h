// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/clock.h"
#include "services/ports/time_keeping.h"
#include "store/data_operations_service_protocol.h"

namespace hearthmark::services {

// Stamps the running intervals once a minute, so that a crash costs a minute at most and never
// counts the time for which the program was gone. Main thread.
class RunningIntervalVisitingService final
    : public std::enable_shared_from_this<RunningIntervalVisitingService> {
 public:
    RunningIntervalVisitingService(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock);

    // Called once, last at launch. The first stamp comes a minute later.
    void start();

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<TimeKeeping> timeKeeper_;
};

}  // namespace hearthmark::services
