// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"

namespace hearthmark::presentation {

// What charts draw of times: one bar for each part of a stretch of time.
struct TimeBar {
    std::string timeSpent;
    // Of the longest of them, or of an hour where that is more; from 0 to 1.
    double share = 0;

    bool operator==(const TimeBar&) const = default;
};

// Into which of the parts the moment falls. They begin at `starts`, of which the last one ends the
// last part.
std::optional<std::size_t> partAt(const std::vector<base::Date>& starts,
                                  const std::optional<base::Date>& moment);

// What has no text, since a file may hold any number, has no bar either.
std::vector<TimeBar> timeBars(const std::vector<base::Seconds>& spent);

}  // namespace hearthmark::presentation
