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

namespace hearthmark::store {

// A copy of the store as it was at one moment.
struct StoreBackup {
    std::filesystem::path file;
    std::chrono::year_month_day day;
    // Of one that was made before a restore; that of a day is of its first start.
    std::optional<std::chrono::seconds> timeOfDay;

    friend bool operator==(const StoreBackup&, const StoreBackup&) = default;
};

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

    // Keeps the store as it is, if this is the first time today and there is a task in it, and lets
    // go of the backups that are too many. What fails is said on standard error and changes no
    // backup.
    void keepDaily() const;

    // Newest first.
    std::vector<StoreBackup> all() const;

    // The newest one that can be restored.
    std::optional<StoreBackup> newestGood() const;

    // These two throw StoreError where the backup cannot be read; the second checks all of it.
    static Counts counts(const StoreBackup& backup);
    RestoreChanges changes(const StoreBackup& backup) const;

    // Does all of a restore that may fail and needs no closed store: keeps the store as it is now
    // as one more backup, and lays a copy of `backup` ready. Throws StoreError.
    void prepareRestore(const StoreBackup& backup) const;

    // Puts what lies ready into the place of the store. Requires: prepareRestore() has succeeded,
    // and the store is closed. Throws StoreError; the store is then one or the other, whole.
    void completeRestore() const;

    // What a person types where the program does not start: what sets aside the store that is
    // there, with its log, and what then puts a backup into its place.
    std::string setAsideCommand() const;
    std::string restoreCommand(const StoreBackup& backup) const;

 private:
    std::filesystem::path pathOf(const base::LocalTime& moment, bool isDaily) const;
    void removeSurplus() const;

    std::filesystem::path directory_;
    std::filesystem::path store_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<const base::Calendar> calendar_;
};

// Those that need not be kept: neither of the last 7 days, nor the newest of one of the last 4
// weeks or 12 months. Days, weeks from Monday on, and months without a backup do not count.
std::vector<StoreBackup> surplusBackups(const std::vector<StoreBackup>& newestFirst);

}  // namespace hearthmark::store
