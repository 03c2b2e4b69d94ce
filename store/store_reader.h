// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "objectstore/store_reading.h"
#include "objectstore/value.h"
#include "store/interval_state.h"
#include "store/records.h"

namespace hearthmark::store {

// A task by itself.
struct TaskEntry {
    objectstore::RowKey key = 0;
    std::optional<base::Uuid> id;
    std::optional<std::string> name;
    std::optional<base::Date> creationDate;
    std::optional<base::Date> doneDate;
};

// An interval with the task that it belongs to.
struct IntervalEntry {
    objectstore::RowKey key = 0;
    TaskEntry task;
    IntervalRecord interval;
};

// The order in which tasks and intervals are shown.
bool isNewer(const TaskEntry& task, const TaskEntry& other);
bool isNewer(const IntervalEntry& entry, const IntervalEntry& other);

// What the file of a store says, for a process that is not the program: values, in the same
// meaning as the program's objects have. What an old version did not have yet is absent, and where
// there is no file there is nothing. It holds the file open, so it is to be let go soon. Failures
// throw StoreError.
class StoreReader {
 public:
    // What a row says that claims to run. While the program runs it does. Else the program has
    // crashed, and finishes it at its next start, at the last moment at which it saw it run.
    enum class LeftRunning { runs, isFinished };

    StoreReader(const std::filesystem::path& directory, LeftRunning leftRunning);

    // Of those of a task that claim to run the newest one, as the status item tells them apart; as
    // it stands in the file.
    std::optional<IntervalEntry> newestRunning();

    // In the order in which they were made, as everything here.
    std::vector<TaskEntry> tasks();

    // Those of tasks that were begun in [from, to).
    std::vector<IntervalEntry> intervals(base::Date from, base::Date to);

    // All tasks with what belongs to them.
    std::vector<TaskRecord> everything();

 private:
    std::string doneDate() const;
    IntervalRecord settled(const IntervalRecord& interval) const;

    std::unique_ptr<objectstore::StoreReading> reading_;
    LeftRunning leftRunning_;
};

// The interval as it is at the end that a crash gave it; as it is where it does not run.
IntervalRecord finishedAtLastSight(IntervalRecord interval);

}  // namespace hearthmark::store
