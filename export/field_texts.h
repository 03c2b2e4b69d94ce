// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

#include "base/calendar.h"
#include "base/date.h"

namespace hearthmark::exporting {

// How a number without a fraction is written: 1500 or 1500.0.
enum class WholeNumber { bare, withFraction };

// Appends the shortest digits that read back to the same double: positional below 1e16 and from
// 1e-5 on, with an exponent beyond. What is not finite is "nan", "inf" or "-inf".
void appendNumber(std::string& text, double number, WholeNumber wholeNumber);

// Appends the day (ISO 8601), 2024-01-01; a year takes four digits at least.
void appendDay(std::string& text, std::chrono::year_month_day day);

// Appends the date and time of day in UTC (ISO 8601, RFC 3339), 2024-01-01T09:30:00Z. A fraction of
// a second is cut off; the calendar is the Gregorian one throughout; a year takes four digits at
// least. A date beyond any calendar, 1e18 seconds and more away or not finite, appends nothing.
void appendDateTime(std::string& text, base::Date date);

// The same by the clock on the wall, with what that was ahead of UTC: 2024-01-01T10:30:00+01:00. In
// UTC where that is no whole number of minutes, as in old times, and nothing where the calendar
// knows no such date.
void appendLocalDateTime(std::string& text, base::Date date, const base::Calendar& calendar);

}  // namespace hearthmark::exporting
