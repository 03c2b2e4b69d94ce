// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "base/clock.h"

namespace hearthmark::services {

// A clock that can be stopped for the time for which the machine sleeps, so that nothing that comes
// due before anybody has heard of the waking counts the night. Main thread.
class AwakeClock final : public base::Clock {
 public:
    explicit AwakeClock(std::shared_ptr<const base::Clock> clock) : clock_(std::move(clock)) {}

    // It tells the present moment until resume() is called.
    void stop() { stoppedAt_ = now(); }
    void resume() { stoppedAt_.reset(); }

    bool isStopped() const { return stoppedAt_.has_value(); }
    base::Date now() const override { return stoppedAt_ ? *stoppedAt_ : clock_->now(); }

 private:
    std::shared_ptr<const base::Clock> clock_;
    std::optional<base::Date> stoppedAt_;
};

}  // namespace hearthmark::services
