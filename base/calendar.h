// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "base/date.h"

namespace hearthmark::base {

// What the calendar and the clock on the wall show, in whole seconds.
struct LocalTime {
    std::chrono::year_month_day day;
    std::chrono::seconds sinceMidnight;

    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

// Knows when the days begin.
class Calendar {
 public:
    virtual ~Calendar() = default;

    // When the day of `now` began, before it that of each of the days before, and after it that of
    // tomorrow: `count` + 1 moments, oldest first. Empty where `now` is out of the calendar's
    // range.
    virtual std::vector<Date> dayStarts(Date now, int count) const = 0;

    // When that day begins; where the calendar leaves it out, the next one. Absent where it is out
    // of the calendar's range.
    virtual std::optional<Date> dayStart(std::chrono::year_month_day day) const = 0;

    // Absent where `date` is out of the calendar's range.
    virtual std::optional<LocalTime> localTime(Date date) const = 0;

    // Its day.
    std::optional<std::chrono::year_month_day> localDay(Date date) const;

    // When it is that time, oldest first: one moment; two where the clocks go back over it, and
    // none where they go forward over it, where there is no such day, or out of the calendar's
    // range.
    virtual std::vector<Date> moments(const LocalTime& time) const = 0;
};

// The days of the machine's time zone, which is looked up anew at each call.
class LocalCalendar final : public Calendar {
 public:
    std::vector<Date> dayStarts(Date now, int count) const override;
    std::optional<Date> dayStart(std::chrono::year_month_day day) const override;
    std::optional<LocalTime> localTime(Date date) const override;
    std::vector<Date> moments(const LocalTime& time) const override;
};

}  // namespace hearthmark::base
