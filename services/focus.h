// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/clock.h"
#include "base/date.h"
#include "base/uuid.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::services {

// The lengths that a focus is usually started with.
constexpr base::Seconds kShortFocus{1800};
constexpr base::Seconds kLongFocus{3600};

// Of what a person types or a program asks for, in whole seconds.
constexpr base::Seconds kShortestFocus{1};
constexpr base::Seconds kLongestFocus{86400};

// What is offered where a focus was too short: for the running one, or as another.
constexpr base::Seconds kMoreFocus{300};

// No interval of any task is running.
bool canStartFocus(const store::Tasks& tasks);

// Begins one on the task now, and returns its id. Requires canStartFocus().
base::Uuid startFocus(store::DataOperationsServiceProtocol& operations, const base::Clock& clock,
                      const base::Uuid& taskId, base::Seconds maxDuration);

// What a finished interval is short of its length; absent where that is less than a second, or it
// has none. Whole seconds, those between its two times as they are shown.
std::optional<base::Seconds> restOf(const store::Interval& interval);

}  // namespace hearthmark::services
