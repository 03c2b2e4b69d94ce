// SPDX-License-Identifier: MIT
#include "store/store_backups.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <string_view>
#include <system_error>
#include <utility>

#include "objectstore/store_file.h"
#include "store/hearthmark_model.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/restore_command.h"
#include "store/store_fault.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

constexpr auto kStoreName = "Hearthmark.sqlite";
// Not beginning as the store does: the command sets aside all that begins so.
constexpr auto kDraftName = "Restored.sqlite";
constexpr auto kFolder = "Backups";
constexpr auto kDamagedFolder = "Damaged";

auto isUntil(const std::chrono::year_month_day& today) {
    return [today](const StoreBackup& backup) { return backup.day <= today; };
}

bool isGood(const std::filesystem::path& store) {
    try {
        objectstore::checkStore(store, hearthmarkModel());
        return true;
    } catch (const objectstore::StoreError&) {
        return false;
    }
}

}  // namespace

StoreBackups::StoreBackups(std::filesystem::path directory,
                           std::shared_ptr<const base::Clock> clock,
                           std::shared_ptr<const base::Calendar> calendar)
    : directory_(std::move(directory)),
      store_(directory_ / kStoreName),
      clock_(std::move(clock)),
      calendar_(std::move(calendar)) {}

std::optional<base::LocalTime> StoreBackups::now() const {
    return calendar_->localTime(clock_->now());
}

std::optional<StoreNotice> StoreBackups::keepDaily() const {
    const auto moment = now();
    return moment ? keepDaily(*moment) : std::nullopt;
}

std::optional<StoreNotice> StoreBackups::keepDaily(const base::LocalTime& now) const {
    try {
        const std::filesystem::path file = pathOf(now, true);
        if (objectstore::isThere(file) || objectstore::countRows(store_, Task::entity()) == 0) {
            return std::nullopt;
        }
        objectstore::copyStore(store_, file, hearthmarkModel());
    } catch (const objectstore::StoreError& error) {
        return failure("Hearthmark could not back up its data", error);
    }
    try {
        removeSurplus(now);
    } catch (const objectstore::StoreError& error) {
        return failure("Hearthmark could not remove old backups", error);
    }
    return std::nullopt;
}

StoreNotice StoreBackups::failure(const char* title, const objectstore::StoreError& error) const {
    std::cerr << std::string(title) + ": " + error.what() + '\n' << std::flush;
    const std::string_view reason = faultOf(error, directory_).reason;
    return {.title = title,
            .body = std::string(reason) + (reason.empty() ? "" : " ") + error.what(),
            .isFailure = true};
}

void StoreBackups::keepBeforeUpgrade() const {
    if (objectstore::countRows(store_, Task::entity()) == 0) {
        return;
    }
    const auto moment = now();
    const bool isFirst = moment && !objectstore::isThere(pathOf(*moment, true));
    objectstore::copyStore(store_, isFirst ? pathOf(*moment, true) : newTimedPath(),
                           hearthmarkModel());
}

std::optional<StoreNotice> StoreBackups::keepBeforeImport() const {
    try {
        if (objectstore::countRows(store_, Task::entity()) > 0) {
            objectstore::copyStore(store_, newTimedPath(), hearthmarkModel());
        }
        return std::nullopt;
    } catch (const objectstore::StoreError& error) {
        return failure("Nothing was imported, since the data could not be backed up", error);
    }
}

std::vector<StoreBackup> StoreBackups::newestFirst() const {
    std::vector<StoreBackup> backups;
    std::error_code error;
    std::filesystem::directory_iterator entry(directory_ / kFolder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (auto backup = backupIn(entry->path())) {
            backups.push_back(std::move(*backup));
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        throw objectstore::StoreError::ofCall("opendir", directory_ / kFolder, error.value());
    }
    std::ranges::sort(backups, std::ranges::greater(), &StoreBackup::file);
    return backups;
}

std::vector<StoreBackup> StoreBackups::all() const {
    std::vector<StoreBackup> backups = newestFirst();
    if (const auto moment = now()) {
        std::stable_partition(backups.begin(), backups.end(), isUntil(moment->day));
    }
    return backups;
}

std::optional<StoreBackup> StoreBackups::newestGood() const {
    std::optional<objectstore::StoreError> unread;
    for (StoreBackup& backup : all()) {
        try {
            objectstore::checkStore(backup.file, hearthmarkModel());
            return std::move(backup);
        } catch (const objectstore::StoreError& error) {
            if (error.cause() != objectstore::StoreError::Cause::damaged && !unread) {
                unread = error;
            }
        }
    }
    if (unread) {
        throw objectstore::StoreError(*unread);
    }
    return std::nullopt;
}

bool StoreBackups::hasAny() const {
    try {
        return !newestFirst().empty();
    } catch (const objectstore::StoreError&) {
        return true;  // a folder of them is there
    }
}

StoreBackups::Beginning StoreBackups::beginning() const {
    using objectstore::StoreFileState;
    const StoreFileState state = objectstore::storeFileState(store_);
    if (state == StoreFileState::present) {
        return Beginning::plain;
    }
    const std::filesystem::path draft = directory_ / kDraftName;
    if (state == StoreFileState::missing && objectstore::isThere(draft) && isGood(draft)) {
        return Beginning::restoreInterrupted;
    }
    if (!hasAny()) {
        return Beginning::plain;
    }
    return state == StoreFileState::empty ? Beginning::emptied : Beginning::withoutStore;
}

void StoreBackups::forgetRestore() const {
    objectstore::removeStoreFile(directory_ / kDraftName);
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
    objectstore::copyStore(store_, newTimedPath(), hearthmarkModel());
    objectstore::copyStore(backup.file, directory_ / kDraftName, hearthmarkModel());
}

void StoreBackups::completeRestore() const {
    const std::filesystem::path draft = directory_ / kDraftName;
    try {
        objectstore::replaceStore(store_, draft);
    } catch (const objectstore::StoreError&) {
        if (objectstore::isThere(store_)) {
            objectstore::removeStoreFile(draft);
        }
        throw;
    }
}

std::string StoreBackups::restoreCommand(const std::optional<StoreBackup>& backup) const {
    return store::restoreCommand(
        {.store = store_,
         .backup = backup ? std::optional(backup->file) : std::nullopt,
         .draft = kDraftName,
         // One for each time, so that no log lies beside a store that it does not belong to.
         .folder = std::string(kDamagedFolder) + '/' + dateText(momentOrNone(), false)});
}

// A clock that shows no date, or the same once more, must not keep anybody from a restore.
base::LocalTime StoreBackups::momentOrNone() const {
    return now().value_or(base::LocalTime{base::kReferenceDay, std::chrono::seconds(0)});
}

std::filesystem::path StoreBackups::newTimedPath() const {
    base::LocalTime moment = momentOrNone();
    while (objectstore::isThere(pathOf(moment, false))) {
        ++moment.sinceMidnight;
    }
    return pathOf(moment, false);
}

std::filesystem::path StoreBackups::pathOf(const base::LocalTime& moment, bool isDaily) const {
    return directory_ / kFolder / ("Hearthmark-" + dateText(moment, isDaily) + ".sqlite");
}

// One goes only while the next newer one that stays is good.
void StoreBackups::removeSurplus(const base::LocalTime& now) const {
    std::vector<StoreBackup> backups = newestFirst();
    // Those of days to come wait until they have come.
    std::erase_if(backups, std::not_fn(isUntil(now.day)));
    const std::vector<StoreBackup> surplus = surplusBackups(backups);
    for (const StoreBackup& each : surplus) {
        auto newer = std::ranges::find(backups, each);
        while (newer != backups.begin() && std::ranges::find(surplus, *newer) != surplus.end()) {
            --newer;
        }
        if (isGood(newer->file)) {
            objectstore::removeStoreFile(each.file);
        }
    }
}

}  // namespace hearthmark::store
