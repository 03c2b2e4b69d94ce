// SPDX-License-Identifier: MIT
#pragma once

#include "services/ports/uptime.h"

namespace hearthmark::platform {

// By the kernel's clocks, to a hundredth of a second.
services::Uptime machineUptime();

}  // namespace hearthmark::platform
