// SPDX-License-Identifier: MIT
#include "store/store_backups.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <string_view>
#include <utility>

#include "objectstore/store_error.h"
#include "objectstore/store_file.h"
#include "store/hearthmark_model.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

constexpr auto kStoreName = "Hearthmark.sqlite";
constexpr auto kDraftName = "Hearthmark.sqlite.restored";
constexpr auto kFolder = "Backups";
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

// Absent for any other file.
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

bool isGood(const StoreBackup& backup) {
    try {
        objectstore::checkStore(backup.file, hearthmarkModel());
        return true;
    } catch (const objectstore::StoreError&) {
        return false;
    }
}

// For a shell.
std::string quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + '\'';
}

std::string padded(std::int64_t number, std::size_t digits = 2) {
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

}  // namespace

StoreBackups::StoreBackups(std::filesystem::path directory,
                           std::shared_ptr<const base::Clock> clock,
                           std::shared_ptr<const base::Calendar> calendar)
    : directory_(std::move(directory)),
      store_(directory_ / kStoreName),
      clock_(std::move(clock)),
      calendar_(std::move(calendar)) {}

void StoreBackups::keepDaily() const {
    try {
        const auto now = calendar_->localTime(clock_->now());
        if (!now) {
            return;
        }
        const std::filesystem::path file = pathOf(*now, true);
        if (!std::filesystem::exists(file) && objectstore::countRows(store_, Task::entity()) > 0) {
            objectstore::copyStore(store_, file, hearthmarkModel());
            removeSurplus();
        }
    } catch (const std::runtime_error& error) {  // StoreError, or of the file system
        std::cerr << "Hearthmark could not back up its data: " << error.what() << std::endl;
    }
}

std::vector<StoreBackup> StoreBackups::all() const {
    std::vector<StoreBackup> backups;
    std::error_code none;  // or none that can be read
    for (const auto& entry : std::filesystem::directory_iterator(directory_ / kFolder, none)) {
        if (auto backup = backupIn(entry.path())) {
            backups.push_back(std::move(*backup));
        }
    }
    std::ranges::sort(backups, std::ranges::greater(), &StoreBackup::file);
    return backups;
}

std::optional<StoreBackup> StoreBackups::newestGood() const {
    const std::vector<StoreBackup> backups = all();
    const auto found = std::ranges::find_if(backups, &isGood);
    return found != backups.end() ? std::optional(*found) : std::nullopt;
}

StoreBackups::Counts StoreBackups::counts(const StoreBackup& backup) {
    return {.tasks = objectstore::countRows(backup.file, Task::entity()),
            .intervals = objectstore::countRows(backup.file, Interval::entity())};
}

RestoreChanges StoreBackups::changes(const StoreBackup& backup) const {
    objectstore::checkStore(backup.file, hearthmarkModel());
    const auto difference = [&](const objectstore::EntityDescription& entity) {
        return objectstore::compareRows(store_, backup.file, entity, hearthmarkModel());
    };
    return {.tasks = difference(Task::entity()),
            .intervals = difference(Interval::entity()),
            .notes = difference(Note::entity())};
}

void StoreBackups::prepareRestore(const StoreBackup& backup) const {
    const auto now = calendar_->localTime(clock_->now());
    // A clock that shows no date, or the same once more, must not keep anybody from a restore.
    base::LocalTime moment =
        now.value_or(base::LocalTime{base::kReferenceDay, std::chrono::seconds(0)});
    while (std::filesystem::exists(pathOf(moment, false))) {
        ++moment.sinceMidnight;
    }
    objectstore::copyStore(store_, pathOf(moment, false), hearthmarkModel());
    objectstore::copyStore(backup.file, directory_ / kDraftName, hearthmarkModel());
}

void StoreBackups::completeRestore() const {
    objectstore::replaceStore(store_, directory_ / kDraftName);
}

std::string StoreBackups::setAsideCommand() const {
    const std::string damaged = "Damaged";
    return "cd " + quoted(directory_.string()) + " && mkdir -p " + damaged +
           " && mv --backup=numbered " + kStoreName + "* " + damaged;
}

std::string StoreBackups::restoreCommand(const StoreBackup& backup) const {
    return "cp " + backup.file.lexically_relative(directory_).string() + ' ' + kStoreName;
}

std::filesystem::path StoreBackups::pathOf(const base::LocalTime& moment, bool isDaily) const {
    std::string name = "Hearthmark-" + padded(static_cast<int>(moment.day.year()), 4) + '-' +
                       padded(static_cast<unsigned>(moment.day.month())) + '-' +
                       padded(static_cast<unsigned>(moment.day.day()));
    if (!isDaily) {
        const std::chrono::hh_mm_ss time(moment.sinceMidnight);
        name += 'T' + padded(time.hours().count()) + '-' + padded(time.minutes().count()) + '-' +
                padded(time.seconds().count());
    }
    return directory_ / kFolder / (name + ".sqlite");
}

// One goes only while the next newer one that stays is good.
void StoreBackups::removeSurplus() const {
    const std::vector<StoreBackup> backups = all();
    const std::vector<StoreBackup> surplus = surplusBackups(backups);
    for (const StoreBackup& each : surplus) {
        auto newer = std::ranges::find(backups, each);
        while (newer != backups.begin() && std::ranges::find(surplus, *newer) != surplus.end()) {
            --newer;
        }
        if (isGood(*newer)) {
            objectstore::removeStoreFile(each.file);
        }
    }
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
