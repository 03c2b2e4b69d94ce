// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <fstream>

#include "app/program_clock.h"
#include "platform/session/machine_uptime.h"

namespace hearthmark::app {

namespace {

// In seconds, as a file says whenever it is asked.
struct Offsets {
    double clock = 0;
    double asleep = 0;
};

Offsets offsets() {
    Offsets read;
    std::ifstream(std::getenv("HEARTHMARK_CLOCK_OFFSET")) >> read.clock >> read.asleep;
    return read;
}

// The machine's clock, set by the test.
class DrivenClock final : public base::Clock {
 public:
    base::Date now() const override {
        return base::SystemClock().now() + base::Seconds(offsets().clock);
    }
};

}  // namespace

std::shared_ptr<const base::Clock> makeProgramClock() {
    return std::make_shared<DrivenClock>();
}

services::Uptime programUptime() {
    services::Uptime uptime = platform::machineUptime();
    uptime.asleep += base::Seconds(offsets().asleep);
    return uptime;
}

}  // namespace hearthmark::app
