// SPDX-License-Identifier: MIT
#include "export/field_texts.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace hearthmark::exporting {

namespace {

constexpr double kPositionalFrom = 1e-5;
constexpr double kPositionalBelow = 1e16;
constexpr double kBeyondCalendar = 1e18;

// The calendar repeats after 400 years, and the reference date begins such a cycle.
constexpr std::int64_t kYearsOfCycle = 400;
constexpr std::int64_t kDaysOfCycle = 146'097;
constexpr std::int64_t kSecondsOfDay = 86'400;
constexpr std::int64_t kSecondsOfMinute = 60;

struct Division {
    std::int64_t quotient;
    // Never negative.
    std::int64_t remainder;
};

constexpr Division divideFlooring(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t remainder = (dividend % divisor + divisor) % divisor;
    return {.quotient = (dividend - remainder) / divisor, .remainder = remainder};
}

// Requires: not negative.
void appendPadded(std::string& text, std::int64_t number, int width) {
    std::array<char, 20> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    for (auto length = end - digits.data(); length < width; ++length) {
        text += '0';
    }
    text += std::string_view(digits.data(), end);
}

// The year apart, since it may be beyond what the calendar's type holds.
void appendDay(std::string& text, std::int64_t year, const std::chrono::year_month_day& day) {
    text += year < 0 ? "-" : "";
    appendPadded(text, std::abs(year), 4);
    text += '-';
    appendPadded(text, static_cast<unsigned>(day.month()), 2);
    text += '-';
    appendPadded(text, static_cast<unsigned>(day.day()), 2);
}

void appendTimeOfDay(std::string& text, std::int64_t second) {
    appendPadded(text, second / 3600, 2);
    text += ':';
    appendPadded(text, second / 60 % 60, 2);
    text += ':';
    appendPadded(text, second % 60, 2);
}

}  // namespace

void appendNumber(std::string& text, double number, WholeNumber wholeNumber) {
    if (std::isnan(number)) {
        text += "nan";  // without a sign
        return;
    }
    const double size = std::abs(number);
    const bool isPositional = size == 0 || (size >= kPositionalFrom && size < kPositionalBelow);
    std::array<char, 32> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number,
                      isPositional ? std::chars_format::fixed : std::chars_format::scientific)
            .ptr;
    text += std::string_view(digits.data(), end);
    if (wholeNumber == WholeNumber::withFraction && isPositional && std::trunc(number) == number) {
        text += ".0";
    }
}

void appendDay(std::string& text, std::chrono::year_month_day day) {
    appendDay(text, static_cast<int>(day.year()), day);
}

void appendDateTime(std::string& text, base::Date date) {
    const double sinceReference = std::floor(date.sinceReferenceDate().count());
    if (!(std::abs(sinceReference) < kBeyondCalendar)) {
        return;
    }
    const auto [days, secondOfDay] =
        divideFlooring(static_cast<std::int64_t>(sinceReference), kSecondsOfDay);
    const auto [cycles, dayOfCycle] = divideFlooring(days, kDaysOfCycle);
    const std::chrono::year_month_day day(base::kReferenceDay + std::chrono::days(dayOfCycle));
    appendDay(text, static_cast<int>(day.year()) + cycles * kYearsOfCycle, day);
    text += 'T';
    appendTimeOfDay(text, secondOfDay);
    text += 'Z';
}

void appendLocalDateTime(std::string& text, base::Date date, const base::Calendar& calendar) {
    const base::Date second(base::Seconds(std::floor(date.sinceReferenceDate().count())));
    const auto local = calendar.localTime(second);
    if (!local) {
        return;
    }
    const auto shown = std::chrono::sys_days(local->day) - base::kReferenceDay +
                       std::chrono::seconds(local->sinceMidnight);
    const std::int64_t offset =
        shown.count() - static_cast<std::int64_t>(second.sinceReferenceDate().count());
    if (offset % kSecondsOfMinute != 0) {
        appendDateTime(text, date);
        return;
    }
    appendDay(text, local->day);
    text += 'T';
    appendTimeOfDay(text, local->sinceMidnight.count());
    text += offset < 0 ? '-' : '+';
    const std::int64_t minutes = std::abs(offset) / kSecondsOfMinute;
    appendPadded(text, minutes / 60, 2);
    text += ':';
    appendPadded(text, minutes % 60, 2);
}

}  // namespace hearthmark::exporting
