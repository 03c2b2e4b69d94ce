// SPDX-License-Identifier: MIT
#include "app/program_clock.h"

#include "platform/session/machine_uptime.h"

namespace hearthmark::app {

std::shared_ptr<const base::Clock> makeProgramClock() {
    return std::make_shared<base::SystemClock>();
}

services::Uptime programUptime() {
    return platform::machineUptime();
}

}  // namespace hearthmark::app
