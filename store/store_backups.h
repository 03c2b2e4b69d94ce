// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "objectstore/store_copy.h"
#include "objectstore/store_error.h"
#include "store/store_backup.h"
#include "store/store_notice.h"

namespace hearthmark::store {

// What restoring a backup would do to the store as it is now.
struct RestoreChanges {
    objectstore::RowDifference tasks;
    objectstore::RowDifference intervals;
    objectstore::RowDifference notes;
};

// Keeps copies of the store in the folder "Backups" beside it, and brings them back. What it reads
// is the directory, at each call. Main thread.
class StoreBackups {
 public:
    struct Counts {
        std::int64_t tasks;
        std::int64_t intervals;
    };

    // The directory is that of the store.
    StoreBackups(std::filesystem::path directory, std::shared_ptr<const base::Clock> clock,
                 std::shared_ptr<const base::Calendar> calendar);

    const std::filesystem::path& storeDirectory() const { return directory_; }

    // Absent where the clock shows no date.
    std::optional<base::LocalTime> now() const;

    // Keeps the store as it is, if there is a task in it and no backup of today yet, and lets go of
    // the backups that are too many. What fails changes no backup; it is said on standard error,
    // and returned for the person to see. Also while the store is open; the one with a moment reads
    // no clock, and may be called on any thread.
    std::optional<StoreNotice> keepDaily() const;
    std::optional<StoreNotice> keepDaily(const base::LocalTime& now) const;

    // Keeps the store as it is before its tables change, if there is a task in it, whatever was
    // kept today. Throws StoreError; nothing is to be changed then.
    void keepBeforeUpgrade() const;

    // Keeps the store as it is before an import, if there is a task in it, whatever was kept today.
    // What fails is returned for the person to see; nothing is to be imported then.
    std::optional<StoreNotice> keepBeforeImport() const;

    // Newest first; after them those of days that are still to come, which a wrong clock made.
    // Throws StoreError where they cannot be listed.
    std::vector<StoreBackup> all() const;

    // The first of all that can be restored. Throws where none can, but one of them for another
    // reason than damage.
    std::optional<StoreBackup> newestGood() const;

    // What is there of a store before it is opened.
    enum class Beginning {
        // A store, or neither a store nor a backup.
        plain,
        // An empty file beside backups: what is left of a store.
        emptied,
        // Backups without a store. Whoever wants to begin anew takes the store away.
        withoutStore,
        // The command that a person was told to type was cut short: the old store is set aside, and
        // what was to take its place lies ready.
        restoreInterrupted
    };
    Beginning beginning() const;

    // Lets go of what a restore that was cut off before its end had laid ready. Requires: the store
    // is there and good.
    void forgetRestore() const;

    // These two throw StoreError where the backup cannot be read; the second checks all of it.
    static Counts counts(const StoreBackup& backup);
    RestoreChanges changes(const StoreBackup& backup) const;

    // Does all of a restore that may fail and needs no closed store: keeps the store as it is now
    // as one more backup, and lays a copy of `backup` ready. Throws StoreError.
    void prepareRestore(const StoreBackup& backup) const;

    // Puts what lies ready into the place of the store. Requires: prepareRestore() has succeeded,
    // and the store is closed. Throws StoreError; the store is then one or the other, whole, and
    // nothing lies ready.
    void completeRestore() const;

    // What a person types where the store is damaged: puts the backup into its place, and sets
    // aside what is there, with its log; without a backup the latter only. It changes nothing
    // before the copy of the backup is on the disk, and nothing at all once another store stands
    // there, as when it is typed again.
    std::string restoreCommand(const std::optional<StoreBackup>& backup) const;

 private:
    std::filesystem::path pathOf(const base::LocalTime& moment, bool isDaily) const;
    base::LocalTime momentOrNone() const;
    bool hasAny() const;
    // At a moment of which none was kept yet.
    std::filesystem::path newTimedPath() const;
    std::vector<StoreBackup> newestFirst() const;
    void removeSurplus(const base::LocalTime& now) const;
    StoreNotice failure(const char* title, const objectstore::StoreError& error) const;

    std::filesystem::path directory_;
    std::filesystem::path store_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<const base::Calendar> calendar_;
};

}  // namespace hearthmark::store
