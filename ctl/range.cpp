// SPDX-License-Identifier: MIT
#include "ctl/range.h"

#include "base/calendar.h"
#include "base/clock.h"
#include "ctl/command.h"

#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale() is POSIX's

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

namespace hearthmark::ctl {

namespace {

using presentation::HistoryRange;
using presentation::HistoryUnit;
using std::chrono::year_month_day;

constexpr std::array<std::pair<std::string_view, HistoryUnit>, 4> kUnits{
    {{"day", HistoryUnit::day},
     {"week", HistoryUnit::week},
     {"month", HistoryUnit::month},
     {"year", HistoryUnit::year}}};
constexpr std::string_view kLast = "last-";

// Of so many digits that the text has at its beginning, which they leave.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits) {
    const std::string_view number = text.substr(0, digits);
    const bool isNumber = number.size() == digits &&
                          std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) {
        return std::nullopt;
    }
    int value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    text.remove_prefix(digits);
    return value;
}

bool take(std::string_view& text, std::string_view beginning) {
    const bool isThere = text.starts_with(beginning);
    text.remove_prefix(isThere ? beginning.size() : 0);
    return isThere;
}

// The week that holds the fourth of January is the first (ISO 8601).
std::optional<HistoryRange> weekOf(std::chrono::year year, int week) {
    const HistoryRange first =
        rangeAround(HistoryUnit::week, year / std::chrono::January / 4, std::chrono::Monday);
    const HistoryRange range = shifted(first, week - 1);
    const HistoryRange next =
        rangeAround(HistoryUnit::week, (year + std::chrono::years(1)) / std::chrono::January / 4,
                    std::chrono::Monday);
    return week >= 1 && range.first < next.first ? std::optional(range) : std::nullopt;
}

std::optional<HistoryRange> rangeOfCalendar(std::string_view text) {
    constexpr std::size_t kYearDigits = 4;
    const auto number = takeNumber(text, kYearDigits);
    if (!number) {
        return std::nullopt;
    }
    const std::chrono::year year(*number);
    HistoryRange range{.unit = HistoryUnit::year, .first = year / std::chrono::January / 1};
    if (take(text, "-W")) {
        const auto week = takeNumber(text, 2);
        return week && text.empty() ? weekOf(year, *week) : std::nullopt;
    }
    if (take(text, "-")) {
        const auto month = takeNumber(text, 2);
        if (!month) {
            return std::nullopt;
        }
        range = {.unit = HistoryUnit::month,
                 .first = year / std::chrono::month(static_cast<unsigned>(*month)) / 1};
    }
    if (range.unit == HistoryUnit::month && take(text, "-")) {
        const auto day = takeNumber(text, 2);
        if (!day) {
            return std::nullopt;
        }
        range = {.unit = HistoryUnit::day,
                 .first = range.first.year() / range.first.month() /
                          std::chrono::day(static_cast<unsigned>(*day))};
    }
    return text.empty() && range.first.ok() ? std::optional(range) : std::nullopt;
}

}  // namespace

std::optional<HistoryRange> rangeFrom(const std::string& text, year_month_day today,
                                      std::chrono::weekday firstDayOfWeek) {
    std::string_view word = text;
    const int count = take(word, kLast) ? -1 : 0;
    for (const auto& [name, unit] : kUnits) {
        if (word == name) {
            return shifted(rangeAround(unit, today, firstDayOfWeek), count);
        }
    }
    return rangeOfCalendar(text);
}

bool isRange(const std::string& text) {
    return text == kAll ||
           rangeFrom(text, std::chrono::sys_days(), std::chrono::Monday).has_value();
}

RangeOfDates rangeOfAll(const std::optional<base::Date>& firstFocus) {
    const base::LocalCalendar calendar;
    const auto today = calendar.localDay(base::SystemClock().now());
    const auto first = firstFocus ? calendar.localDay(*firstFocus) : today;
    RangeOfDates range;
    if (today && first) {
        const std::chrono::year last = today->year();
        range.days = presentation::rangeOfYears(std::min(first->year(), last), last);
        range.starts = partStarts(range.days, calendar);
    }
    if (range.starts.empty()) {
        throw CommandError("The calendar of the system does not know when the first focus was.");
    }
    return range;
}

RangeOfDates rangeOfDates(const std::string& text) {
    if (!isRange(text)) {
        throw UsageError("\"" + text + "\" is no range of days. These are: " + kRangeHelp + '.');
    }
    const base::LocalCalendar calendar;
    const auto today = calendar.localDay(base::SystemClock().now());
    RangeOfDates range;
    if (today) {
        range.days = rangeFrom(text, *today, firstDayOfWeek()).value();
        range.starts = partStarts(range.days, calendar);
    }
    if (range.starts.empty()) {
        throw CommandError("The calendar of the system does not know " + text + '.');
    }
    return range;
}

std::chrono::weekday firstDayOfWeek() {
    // As the toolkit of the window looks for it, which knows all locales and has Monday in "C".
    const char* name = nullptr;
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (name == nullptr && value != nullptr && *value != '\0') {
            name = value;
        }
    }
    const std::string_view given = name != nullptr ? name : "C";
    if (given == "C" || given == "POSIX" || given.starts_with("C.")) {
        return std::chrono::Monday;
    }
    const locale_t locale = ::newlocale(LC_TIME_MASK, name, nullptr);
    if (locale == nullptr) {
        return std::chrono::Monday;
    }
    // The number of a day, counted from the one that this date is of: a Sunday, or a Monday.
    constexpr std::uintptr_t kMondayDate = 19971201;
    constexpr unsigned kDaysOfWeek = 7;
    const unsigned number =
        static_cast<unsigned char>(*::nl_langinfo_l(_NL_TIME_FIRST_WEEKDAY, locale));
    const auto date =
        reinterpret_cast<std::uintptr_t>(::nl_langinfo_l(_NL_TIME_WEEK_1STDAY, locale));
    ::freelocale(locale);
    const unsigned first = static_cast<unsigned>(date) == kMondayDate ? 1 : 0;
    return std::chrono::weekday((first + number - 1) % kDaysOfWeek);
}

}  // namespace hearthmark::ctl
