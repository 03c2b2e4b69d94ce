// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/date.h"
#include "base/uuid.h"
#include "store/edit.h"

namespace hearthmark::store {

// What is to be set of an interval; what is absent stays.
struct IntervalCorrection {
    // Of a running one this moves what has been counted, too, unless that is set itself.
    std::optional<base::Date> creationDate = std::nullopt;
    // Of a running one up to now.
    std::optional<base::Seconds> timeSpent = std::nullopt;
    std::optional<base::Seconds> maxDuration = std::nullopt;
    // Where it is to stand from now on.
    std::optional<base::Uuid> taskId = std::nullopt;

    bool operator==(const IntervalCorrection&) const = default;
};

// What corrects the interval, which has the id and stands in the task.
CorrectInterval correctingEdit(const Interval& interval, const base::Uuid& intervalId,
                               const base::Uuid& taskId, const IntervalCorrection& correction,
                               base::Date now);

}  // namespace hearthmark::store
