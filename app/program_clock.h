// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/clock.h"

namespace hearthmark::app {

// The clock of the program, made once by main(). The tests link another one.
std::shared_ptr<const base::Clock> makeProgramClock();

}  // namespace hearthmark::app
