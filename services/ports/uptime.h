// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/date.h"

namespace hearthmark::services {

// Since the machine was started. Neither is changed by setting the clock.
struct Uptime {
    base::Seconds awake{0};
    base::Seconds asleep{0};
};

using UptimeReader = std::function<Uptime()>;

}  // namespace hearthmark::services
