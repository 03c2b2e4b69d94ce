// SPDX-License-Identifier: MIT
#include "presentation/history_range.h"

#include <optional>

namespace hearthmark::presentation {

namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::weekday;
using std::chrono::year_month_day;

constexpr days kWeek{7};
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
            day = day.year() / std::chrono::January / 1;
            break;
    }
    return {.unit = unit, .first = day};
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
            first += std::chrono::years(count);
            break;
    }
    return {.unit = range.unit, .first = first};
}

std::vector<base::Date> partStarts(const HistoryRange& range, const base::Calendar& calendar) {
    const year_month_day end = shifted(range, 1).first;
    std::vector<year_month_day> firsts;
    for (year_month_day day = range.first; day < end;) {
        firsts.push_back(day);
        day = range.unit == HistoryUnit::year ? day + months(1)
                                              : year_month_day(sys_days(day) + days(1));
    }
    firsts.push_back(end);
    std::vector<base::Date> starts;
    for (const year_month_day& first : firsts) {
        const auto start = calendar.dayStart(first);
        if (!start) {
            return {};
        }
        starts.push_back(*start);
    }
    if (range.unit == HistoryUnit::day) {
        std::vector<base::Date> hours;
        appendHours(hours, starts.front(), starts.back(), calendar);
        hours.push_back(starts.back());
        return hours;
    }
    return starts;
}

}  // namespace hearthmark::presentation
