// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "services/ports/time_keeping.h"
#include "store/interval_finishing.h"

namespace hearthmark::services {

// Has what reached its maximum finished, once a second. Main thread.
class IntervalTimeKeeperService final
    : public std::enable_shared_from_this<IntervalTimeKeeperService> {
 public:
    IntervalTimeKeeperService(std::shared_ptr<store::IntervalFinishing> intervalFinisher,
                              std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider);

    // Called once, at launch. The timer goes on for the rest of the process.
    void start();

 private:
    std::shared_ptr<store::IntervalFinishing> intervalFinisher_;
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<TimeKeeping> timeKeeper_;
};

}  // namespace hearthmark::services
