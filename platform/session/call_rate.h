// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_map>

#include "base/date.h"

namespace hearthmark::platform {

// Lets calls of other programs through as fast as people and scripts need them, and not as fast as
// a program that runs wild makes them: each one may cost a write to the disk. One that calls too
// often leaves room for the others. Main thread.
class CallRate {
 public:
    // So many at once, and after that so many a second.
    struct Limit {
        double atOnce;
        double perSecond;
    };

    CallRate(Limit ofSender, Limit ofAll) : ofSender_(ofSender), ofAll_(ofAll) {}

    // Counts the call where it answers yes. `now` is of a clock that never goes back.
    bool admits(const std::string& sender, base::Seconds now);

 private:
    // What is left of a limit.
    struct Rest {
        double calls;
        base::Seconds at;
    };

    static void refill(Rest& rest, Limit limit, base::Seconds now);

    Limit ofSender_;
    Limit ofAll_;
    Rest all_{.calls = ofAll_.atOnce, .at = base::Seconds(0)};
    // Those that called of late: no more than the calls that come through until a limit is full.
    std::unordered_map<std::string, Rest> senders_;
};

}  // namespace hearthmark::platform
