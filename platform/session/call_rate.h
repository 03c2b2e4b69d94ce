// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_map>

#include "base/date.h"

namespace hearthmark::platform {

// Of a clock that never goes back.
base::Seconds steadyNow();

// So many calls at once, and after that so many a second.
class CallLimit {
 public:
    struct Bounds {
        double atOnce;
        double perSecond;
    };

    CallLimit(Bounds bounds, base::Seconds now) : bounds_(bounds), left_(bounds.atOnce), at_(now) {}

    bool isFree(base::Seconds now);
    // Requires isFree().
    void count() { --left_; }
    // Whether no call of late counts any more.
    bool isForgotten(base::Seconds now);

 private:
    void refill(base::Seconds now);

    Bounds bounds_;
    double left_;
    base::Seconds at_;
};

// Lets calls through as fast as people and scripts need them, and not as fast as a program that
// runs wild makes them: each may cost a write to the disk. One that calls too often leaves room for
// the others. Main thread.
class CallRate {
 public:
    CallRate(CallLimit::Bounds ofSender, CallLimit::Bounds ofAll, base::Seconds now)
        : ofSender_(ofSender), all_(ofAll, now) {}

    // Counts the call where it answers yes.
    bool admits(const std::string& sender, base::Seconds now);

 private:
    CallLimit::Bounds ofSender_;
    CallLimit all_;
    // Those that called of late: no more than calls come through until a limit is full again.
    std::unordered_map<std::string, CallLimit> senders_;
};

}  // namespace hearthmark::platform
