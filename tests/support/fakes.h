// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "base/clock.h"
#include "services/time_keeping.h"

namespace hearthmark::tests {

constexpr base::Date at(double seconds) {
    return base::Date(base::Seconds(seconds));
}

// Stands still, or goes on by a step at each reading.
struct FakeClock final : base::Clock {
    base::Date now() const override { return std::exchange(time, time + step); }

    mutable base::Date time = at(1000);
    base::Seconds step{0};
};

// Timers that fire when the test says so.
struct FakeTimeKeepingProvider final : services::TimeKeepingProviderProtocol {
    struct Timer final : services::TimeKeeping {
        void invalidate() override { isValid = false; }

        base::Seconds interval{0};
        std::function<void()> action;
        bool isValid = true;
    };

    std::shared_ptr<services::TimeKeeping> makeTimer(base::Seconds interval, services::Repeats,
                                                     std::function<void()> action) override {
        timers.push_back(std::make_shared<Timer>());
        timers.back()->interval = interval;
        timers.back()->action = std::move(action);
        return timers.back();
    }

    // Lets every valid timer fire once.
    void fire() const {
        for (const auto& timer : std::vector(timers)) {
            if (timer->isValid) {
                timer->action();
            }
        }
    }

    auto validTimers() const {
        return std::ranges::count_if(timers, [](const auto& timer) { return timer->isValid; });
    }

    std::vector<std::shared_ptr<Timer>> timers;
};

}  // namespace hearthmark::tests
