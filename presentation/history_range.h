// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "base/calendar.h"
#include "base/date.h"

namespace hearthmark::presentation {

// How long a stretch of the history is.
enum class HistoryUnit { day, week, month, year, all };

// A stretch of the history, by the calendar alone.
struct HistoryRange {
    HistoryUnit unit = HistoryUnit::day;
    std::chrono::year_month_day first{};
    // Of all that there is; else 1.
    int years = 1;

    bool operator==(const HistoryRange&) const = default;
};

// The one that holds the day.
HistoryRange rangeAround(HistoryUnit unit, std::chrono::year_month_day day,
                         std::chrono::weekday firstDayOfWeek);

// All years from one to the other, but for those more than 200 years before it: a mistake of a
// file.
HistoryRange rangeOfYears(std::chrono::year first, std::chrono::year last);

// That many further on, or back.
HistoryRange shifted(const HistoryRange& range, int count);

// The range that one of its parts is; of the hours of a day the day.
HistoryRange partOf(const HistoryRange& range, std::size_t part);

// When its parts begin, and at the end when the range after it begins: years, the months of a year,
// the days of a month or a week, the hours of a day. Those are the hours on the wall: a part begins
// whenever the clock comes to another hour or is put back, so that an hour that comes twice has two
// parts and one that is left out none. Empty where that is out of the calendar's range.
std::vector<base::Date> partStarts(const HistoryRange& range, const base::Calendar& calendar);

// The same of its days, whatever its parts are.
std::vector<base::Date> dayStarts(const HistoryRange& range, const base::Calendar& calendar);

}  // namespace hearthmark::presentation
