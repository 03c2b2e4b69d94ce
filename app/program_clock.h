// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/clock.h"
#include "services/ports/uptime.h"

namespace hearthmark::app {

// The clock of the program, made once by main(), and what tells it that the machine has slept. The
// tests link others.
std::shared_ptr<const base::Clock> makeProgramClock();
services::Uptime programUptime();

}  // namespace hearthmark::app
