// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

#include "services/ports/time_keeping.h"

namespace hearthmark::services {

// A timer that is stopped when another takes its place, and with its owner.
class OwnedTimer {
 public:
    OwnedTimer() = default;
    OwnedTimer(const OwnedTimer&) = delete;
    OwnedTimer& operator=(const OwnedTimer&) = delete;
    ~OwnedTimer() { stop(); }

    OwnedTimer& operator=(std::shared_ptr<TimeKeeping> timer) {
        stop();
        timer_ = std::move(timer);
        return *this;
    }

    void stop() {
        if (const auto stopped = std::exchange(timer_, nullptr)) {
            stopped->invalidate();
        }
    }

    // Present, and not stopped.
    explicit operator bool() const { return timer_ != nullptr; }

 private:
    std::shared_ptr<TimeKeeping> timer_;
};

}  // namespace hearthmark::services
