// SPDX-License-Identifier: MIT
#include "app/program_clock.h"

namespace hearthmark::app {

std::shared_ptr<const base::Clock> makeProgramClock() {
    return std::make_shared<base::SystemClock>();
}

}  // namespace hearthmark::app
