// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <fstream>

#include "app/program_clock.h"

namespace hearthmark::app {

namespace {

// The machine's clock, set by the number of seconds that a file holds whenever it is asked.
class DrivenClock final : public base::Clock {
 public:
    base::Date now() const override {
        double offset = 0;
        std::ifstream(std::getenv("HEARTHMARK_CLOCK_OFFSET")) >> offset;
        return base::SystemClock().now() + base::Seconds(offset);
    }
};

}  // namespace

std::shared_ptr<const base::Clock> makeProgramClock() {
    return std::make_shared<DrivenClock>();
}

}  // namespace hearthmark::app
