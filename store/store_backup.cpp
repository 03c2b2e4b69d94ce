// SPDX-License-Identifier: MIT
#include "store/store_backup.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace hearthmark::store {

namespace {

// A zero stands for any digit. They sort as they follow each other.
constexpr std::string_view kDailyName = "Hearthmark-0000-00-00.sqlite";
constexpr std::string_view kTimedName = "Hearthmark-0000-00-00T00-00-00.sqlite";

constexpr std::size_t kDays = 7;
constexpr std::size_t kWeeks = 4;
constexpr std::size_t kMonths = 12;

bool matches(const std::string& name, std::string_view pattern) {
    return std::ranges::equal(name, pattern, [](char c, char expected) {
        return expected == '0' ? c >= '0' && c <= '9' : c == expected;
    });
}

std::string padded(std::int64_t number, std::size_t digits = 2) {
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

}  // namespace

std::optional<StoreBackup> backupIn(const std::filesystem::path& file) {
    const std::string name = file.filename();
    const bool isTimed = matches(name, kTimedName);
    if (!isTimed && !matches(name, kDailyName)) {
        return std::nullopt;
    }
    const auto number = [&name](std::size_t place, std::size_t digits = 2) {
        return std::stoi(name.substr(place, digits));
    };
    // Places of the numbers in the names.
    const std::chrono::year_month_day day{std::chrono::year(number(11, 4)),
                                          std::chrono::month(static_cast<unsigned>(number(16))),
                                          std::chrono::day(static_cast<unsigned>(number(19)))};
    if (!day.ok()) {
        return std::nullopt;
    }
    StoreBackup backup{.file = file, .day = day, .timeOfDay = {}};
    if (isTimed) {
        backup.timeOfDay = std::chrono::hours(number(22)) + std::chrono::minutes(number(25)) +
                           std::chrono::seconds(number(28));
    }
    return backup;
}

std::string dateText(const base::LocalTime& moment, bool isDaily) {
    std::string text = padded(static_cast<int>(moment.day.year()), 4) + '-' +
                       padded(static_cast<unsigned>(moment.day.month())) + '-' +
                       padded(static_cast<unsigned>(moment.day.day()));
    if (!isDaily) {
        const std::chrono::hh_mm_ss time(moment.sinceMidnight);
        text += 'T' + padded(time.hours().count()) + '-' + padded(time.minutes().count()) + '-' +
                padded(time.seconds().count());
    }
    return text;
}

std::vector<StoreBackup> surplusBackups(const std::vector<StoreBackup>& newestFirst) {
    std::set<std::chrono::sys_days> days;
    std::set<std::chrono::sys_days> mondays;
    std::set<std::chrono::year_month> months;
    const auto isFirstOf = [](auto& periods, const auto& period, std::size_t kept) {
        return periods.size() < kept && periods.insert(period).second;
    };
    std::vector<StoreBackup> surplus;
    for (const StoreBackup& backup : newestFirst) {
        const std::chrono::sys_days day = backup.day;
        const auto monday = day - (std::chrono::weekday(day) - std::chrono::Monday);
        // Each is asked, since each notes what is kept.
        const bool isOfDay = isFirstOf(days, day, kDays) || days.contains(day);
        const bool isOfWeek = isFirstOf(mondays, monday, kWeeks);
        const bool isOfMonth = isFirstOf(months, backup.day.year() / backup.day.month(), kMonths);
        if (!isOfDay && !isOfWeek && !isOfMonth) {
            surplus.push_back(backup);
        }
    }
    return surplus;
}

}  // namespace hearthmark::store
