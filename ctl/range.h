// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "presentation/history_range.h"

namespace hearthmark::ctl {

// A range of days as it is typed: day, week, month or year, that of today, each with "last-" before
// it that before; 2026-11-23, 2026-W47 (from a Monday on), 2026-11 and 2026. Absent where it is
// none.
std::optional<presentation::HistoryRange> rangeFrom(const std::string& text,
                                                    std::chrono::year_month_day today,
                                                    std::chrono::weekday firstDayOfWeek);

// The same by the calendar and the clock of the machine, with the moments at which its parts begin
// and the one at which it ends.
struct RangeOfDates {
    presentation::HistoryRange days;
    std::vector<base::Date> starts;
};

// Stands for all that there is.
constexpr std::string_view kAll = "all";

bool isRange(const std::string& text);

// The years from the one of the first focus on. Throws CommandError where the calendar does not
// know them.
RangeOfDates rangeOfAll(const std::optional<base::Date>& firstFocus);

// Of the others. Throws UsageError where it is none, CommandError where the calendar does not know
// it.
RangeOfDates rangeOfDates(const std::string& text);

constexpr auto kRangeHelp =
    "day, week, month, year, all, last-day, last-week and so on, 2026-11-23, 2026-W47, 2026-11, "
    "2026";

// As the locale of the environment has it; Monday where that is not installed.
std::chrono::weekday firstDayOfWeek();

}  // namespace hearthmark::ctl
