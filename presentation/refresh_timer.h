// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "services/time_keeping.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// The one-second timer of a view model, present only while some interval runs. Stopped when this is
// destroyed.
class RefreshTimer {
 public:
    RefreshTimer(std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
                 std::function<void()> onTick);
    RefreshTimer(const RefreshTimer&) = delete;
    RefreshTimer& operator=(const RefreshTimer&) = delete;
    ~RefreshTimer();

    // Starts or stops it for the present states. A timer that runs is left alone.
    void follow(const store::RawIntervalStates& states);

 private:
    void stop();

    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::function<void()> onTick_;
    std::shared_ptr<services::TimeKeeping> timer_;
};

}  // namespace hearthmark::presentation
