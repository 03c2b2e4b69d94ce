// SPDX-License-Identifier: MIT
#include "presentation/refresh_timer.h"

#include <algorithm>
#include <utility>

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kTick{1};

}  // namespace

RefreshTimer::RefreshTimer(
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::function<void()> onTick)
    : timeKeepingProvider_(std::move(timeKeepingProvider)), onTick_(std::move(onTick)) {}

RefreshTimer::~RefreshTimer() {
    stop();
}

void RefreshTimer::follow(const store::RawIntervalStates& states) {
    if (!std::any_of(states.begin(), states.end(),
                     [](const store::RawIntervalState& state) { return state.isRunning(); })) {
        stop();
    } else if (!timer_) {
        timer_ = timeKeepingProvider_->makeTimer(kTick, services::Repeats::yes, onTick_);
    }
}

void RefreshTimer::stop() {
    if (timer_) {
        timer_->invalidate();
        timer_.reset();
    }
}

}  // namespace hearthmark::presentation
