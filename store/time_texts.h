// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/clock.h"
#include "base/date.h"

namespace hearthmark::store {

class Interval;
class Task;

// Time spent on an interval up to now. Reads the clock where it runs.
base::Seconds timeSpent(const Interval& interval, const base::Clock& clock);

// The sum of the time spent on all intervals of the task. Reads the clock for each that runs.
base::Seconds timeSpent(const Task& task, const base::Clock& clock);

// The time spent on the interval as a share of its maximum, from 0 to 1; 0 where it has none.
double progress(const Interval& interval, const base::Clock& clock);

// Hours, minutes and seconds joined by ":", whole seconds rounded down. Leading zero units are
// dropped, every unit after the first has two digits: 5, 1:05, 25:00, 1:00:05. Nothing spent reads
// 0. Absent where the duration is negative, not finite, or 1e15 seconds and more.
std::optional<std::string> formattedDuration(base::Seconds duration);

// The time spent on the interval, "/" and its maximum: 1:05/25:00. Without the maximum where that
// has no text; absent where the time spent has none.
std::optional<std::string> formattedTimeSpent(const Interval& interval, const base::Clock& clock);

}  // namespace hearthmark::store
