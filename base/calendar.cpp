// SPDX-License-Identifier: MIT
#include "base/calendar.h"

#include <cmath>
#include <ctime>
#include <optional>

namespace hearthmark::base {

namespace {

// The longest that a change of the clocks takes out of a night, or puts in.
constexpr std::time_t kLongestGap = 10800;
constexpr std::time_t kGapStep = 900;
constexpr int kFirstYear = 1900;

bool isBefore(const std::tm& a, const std::tm& b) {
    return a.tm_year != b.tm_year ? a.tm_year < b.tm_year : a.tm_yday < b.tm_yday;
}

// The first moment of the day that lies so many days after the given one.
std::optional<std::time_t> startOf(const std::tm& day, int daysAfter) {
    std::tm noon = day;
    noon.tm_mday += daysAfter;
    noon.tm_hour = 12;
    noon.tm_min = noon.tm_sec = 0;
    noon.tm_isdst = -1;
    std::tm midnight = noon;
    midnight.tm_hour = 0;
    if (std::mktime(&noon) == -1) {
        return std::nullopt;
    }
    std::time_t start = std::mktime(&midnight);
    // Where the clocks go forward at midnight there is none, and the day begins later.
    for (std::time_t waited = 0; waited < kLongestGap; waited += kGapStep) {
        std::tm local{};
        if (start == -1 || localtime_r(&start, &local) == nullptr) {
            return std::nullopt;
        }
        if (!isBefore(local, noon)) {
            break;
        }
        start += kGapStep;
    }
    // Where they go back over midnight there are two, and the day begins at the first.
    for (std::time_t repeated = 0; repeated < kLongestGap; repeated += kGapStep) {
        const std::time_t earlier = start - kGapStep;
        std::tm local{};
        if (localtime_r(&earlier, &local) == nullptr || isBefore(local, noon)) {
            break;
        }
        start = earlier;
    }
    return start;
}

Date toDate(std::time_t time) {
    return Date(Seconds(static_cast<double>(time)) - kUnixTimeOfReferenceDate);
}

// Noon, of which the calendar functions make the time that there is.
std::tm noonOf(std::chrono::year_month_day day) {
    std::tm noon{};
    noon.tm_year = int(day.year()) - kFirstYear;
    noon.tm_mon = int(unsigned(day.month())) - 1;
    noon.tm_mday = int(unsigned(day.day()));
    noon.tm_hour = 12;
    noon.tm_isdst = -1;
    return noon;
}

// By the machine's time zone as it is now.
std::optional<std::tm> brokenDown(Date date) {
    tzset();
    const double seconds =
        std::floor((date.sinceReferenceDate() + kUnixTimeOfReferenceDate).count());
    // The years that every calendar function can count.
    if (!(std::abs(seconds) < 1e11)) {
        return std::nullopt;
    }
    const auto time = static_cast<std::time_t>(seconds);
    std::tm local{};
    return localtime_r(&time, &local) != nullptr ? std::optional(local) : std::nullopt;
}

}  // namespace

std::optional<std::chrono::year_month_day> Calendar::localDay(Date date) const {
    const auto time = localTime(date);
    return time ? std::optional(time->day) : std::nullopt;
}

std::optional<LocalTime> LocalCalendar::localTime(Date date) const {
    const auto local = brokenDown(date);
    if (!local) {
        return std::nullopt;
    }
    const std::chrono::year_month_day day{std::chrono::year(local->tm_year + kFirstYear),
                                          std::chrono::month(unsigned(local->tm_mon) + 1),
                                          std::chrono::day(unsigned(local->tm_mday))};
    return LocalTime{day, std::chrono::hours(local->tm_hour) + std::chrono::minutes(local->tm_min) +
                              std::chrono::seconds(local->tm_sec)};
}

std::vector<Date> LocalCalendar::moments(const LocalTime& time) const {
    tzset();
    std::tm wanted = noonOf(time.day);
    wanted.tm_hour = 0;
    wanted.tm_sec = int(time.sinceMidnight.count());
    const std::time_t near = std::mktime(&wanted);
    std::vector<Date> found;
    for (std::time_t off = -kLongestGap; near != -1 && off <= kLongestGap; off += kGapStep) {
        const Date moment = toDate(near + off);
        if (localTime(moment) == time) {
            found.push_back(moment);
        }
    }
    return found;
}

std::vector<Date> LocalCalendar::dayStarts(Date now, int count) const {
    const auto today = brokenDown(now);
    if (!today) {
        return {};
    }
    std::vector<Date> starts;
    for (int day = 1 - count; day <= 1; ++day) {
        const auto start = startOf(*today, day);
        if (!start) {
            return {};
        }
        starts.push_back(toDate(*start));
    }
    return starts;
}

std::optional<Date> LocalCalendar::dayStart(std::chrono::year_month_day day) const {
    tzset();
    const std::tm wanted = noonOf(day);
    std::tm noon = wanted;
    if (std::mktime(&noon) == -1) {
        return std::nullopt;
    }
    // A day that a country left out, to be on the other side of the date line, is the one before.
    const auto start = startOf(wanted, noon.tm_mday == wanted.tm_mday ? 0 : 1);
    return start ? std::optional(toDate(*start)) : std::nullopt;
}

}  // namespace hearthmark::base
