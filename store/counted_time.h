// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/date.h"

namespace hearthmark::store {

class Interval;

// The time that an interval has counted: what is folded, and since when the running stretch counts.
struct CountedTime {
    base::Seconds duration{0};
    // Absent where it does not run.
    std::optional<base::Date> started;

    bool operator==(const CountedTime&) const = default;
};

// As it now is.
CountedTime countedTime(const Interval& interval);

void setCountedTime(Interval& interval, const CountedTime& time);

// By how much more the second has counted at any moment.
base::Seconds difference(const CountedTime& from, const CountedTime& to);

// With so much more, or less: the duration takes it, and the start of the running stretch what the
// duration cannot. Never less than nothing.
CountedTime withMore(CountedTime time, base::Seconds more, base::Date now);

}  // namespace hearthmark::store
