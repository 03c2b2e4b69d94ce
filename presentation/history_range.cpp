// SPDX-License-Identifier: MIT
#include "presentation/history_range.h"

#include <algorithm>
#include <optional>

namespace hearthmark::presentation {

namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::weekday;
using std::chrono::year_month_day;

constexpr days kWeek{7};
constexpr int kMonthsOfYear = 12;
constexpr std::chrono::years kMostYears{200};
// All clocks of the world are put forward and back by so much or several times that.
constexpr base::Seconds kClockStep{900};

void appendHours(std::vector<base::Date>& starts, base::Date from, base::Date to,
                 const base::Calendar& calendar) {
    std::optional<base::LocalTime> before;
    for (base::Date moment = from; moment < to; moment = moment + kClockStep) {
        const auto time = calendar.localTime(moment);
        if (!time) {
            return;
        }
        const auto hour = std::chrono::floor<std::chrono::hours>(time->sinceMidnight);
        if (!before || before->sinceMidnight > time->sinceMidnight ||
            std::chrono::floor<std::chrono::hours>(before->sinceMidnight) != hour) {
            starts.push_back(moment);
        }
        before = time;
    }
}

// Of its days, or what is of that many months, and of what comes after them.
std::vector<base::Date> startsOf(year_month_day first, year_month_day end, months step,
                                 const base::Calendar& calendar) {
    std::vector<base::Date> starts;
    for (year_month_day day = first;;) {
        const auto start = calendar.dayStart(day);
        if (!start) {
            return {};
        }
        starts.push_back(*start);
        if (day >= end) {
            return starts;
        }
        day = step > months(0) ? day + step : year_month_day(sys_days(day) + days(1));
    }
}

}  // namespace

HistoryRange rangeAround(HistoryUnit unit, year_month_day day, weekday firstDayOfWeek) {
    switch (unit) {
        case HistoryUnit::day:
            break;
        case HistoryUnit::week:
            day = sys_days(day) - (weekday(sys_days(day)) - firstDayOfWeek);
            break;
        case HistoryUnit::month:
            day = day.year() / day.month() / 1;
            break;
        case HistoryUnit::year:
        case HistoryUnit::all:
            day = day.year() / std::chrono::January / 1;
            break;
    }
    return {.unit = unit, .first = day};
}

HistoryRange rangeOfYears(std::chrono::year first, std::chrono::year last) {
    first = std::max(first, last - kMostYears);
    return {.unit = HistoryUnit::all,
            .first = first / std::chrono::January / 1,
            .years = static_cast<int>((last - first).count()) + 1};
}

HistoryRange shifted(const HistoryRange& range, int count) {
    year_month_day first = range.first;
    switch (range.unit) {
        case HistoryUnit::day:
            first = sys_days(first) + days(count);
            break;
        case HistoryUnit::week:
            first = sys_days(first) + kWeek * count;
            break;
        case HistoryUnit::month:
            first += months(count);
            break;
        case HistoryUnit::year:
        case HistoryUnit::all:
            first += std::chrono::years(count * range.years);
            break;
    }
    return {.unit = range.unit, .first = first, .years = range.years};
}

HistoryRange partOf(const HistoryRange& range, std::size_t part) {
    HistoryRange narrowed{.unit = HistoryUnit::day, .first = range.first};
    if (range.unit == HistoryUnit::all) {
        narrowed = {.unit = HistoryUnit::year,
                    .first = range.first + std::chrono::years(static_cast<int>(part))};
    } else if (range.unit == HistoryUnit::year) {
        narrowed = {.unit = HistoryUnit::month, .first = range.first + months(part)};
    } else if (range.unit != HistoryUnit::day) {
        narrowed.first = sys_days(range.first) + days(part);
    }
    return narrowed;
}

std::vector<base::Date> dayStarts(const HistoryRange& range, const base::Calendar& calendar) {
    return startsOf(range.first, shifted(range, 1).first, months(0), calendar);
}

std::vector<base::Date> partStarts(const HistoryRange& range, const base::Calendar& calendar) {
    months step(0);
    if (range.unit == HistoryUnit::all) {
        step = months(kMonthsOfYear);
    } else if (range.unit == HistoryUnit::year) {
        step = months(1);
    }
    std::vector<base::Date> starts = startsOf(range.first, shifted(range, 1).first, step, calendar);
    if (range.unit == HistoryUnit::day && !starts.empty()) {
        std::vector<base::Date> hours;
        appendHours(hours, starts.front(), starts.back(), calendar);
        hours.push_back(starts.back());
        return hours;
    }
    return starts;
}

}  // namespace hearthmark::presentation
