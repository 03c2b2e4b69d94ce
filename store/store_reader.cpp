// SPDX-License-Identifier: MIT
#include "store/store_reader.h"

#include <unordered_map>
#include <utility>

#include "objectstore/column.h"
#include "objectstore/store_file.h"
#include "store/hearthmark_model.h"
#include "store/newest_first.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::store {

namespace {

using objectstore::RowReader;

// Which brought Task.doneDate.
constexpr std::int32_t kVersionWithDone = 2;

// Columns of all queries, in the order in which they are read: of a task, an interval and its raw
// state. An interval has the last of the states that name it.
constexpr auto kTask = "t.pk, t.id, t.name, t.creationDate, ";
constexpr auto kInterval =
    "i.pk, i.id, i.creationDate, i.duration, i.maxDuration, s.pk, s.state, s.started, s.visited";
constexpr auto kState =
    " LEFT JOIN RawIntervalState s ON s.pk ="
    " (SELECT max(pk) FROM RawIntervalState WHERE interval = i.pk)";

// Reads one column after the other.
class Columns {
 public:
    explicit Columns(const RowReader& row) : row_(row) {}

    template <class T>
    T next() {
        return objectstore::Column<T>::read(row_, column_++);
    }
    std::optional<objectstore::RowKey> nextKey() { return row_.integer(column_++); }

 private:
    const RowReader& row_;
    int column_ = 0;
};

TaskEntry nextTask(Columns& columns) {
    TaskEntry task;
    task.key = columns.nextKey().value_or(0);
    task.id = columns.next<std::optional<base::Uuid>>();
    task.name = columns.next<std::optional<std::string>>();
    task.creationDate = columns.next<base::OptionalDate>();
    task.doneDate = columns.next<base::OptionalDate>();
    return task;
}

// Its key is read already.
IntervalRecord nextInterval(Columns& columns) {
    IntervalRecord interval;
    interval.id = columns.next<std::optional<base::Uuid>>();
    interval.creationDate = columns.next<base::OptionalDate>();
    interval.duration = columns.next<base::Seconds>();
    interval.maxDuration = columns.next<base::Seconds>();
    if (columns.nextKey()) {
        // In the order of the columns.
        const auto state = columns.next<std::int16_t>();
        const std::optional<base::Date> started = columns.next<base::OptionalDate>();
        const std::optional<base::Date> visited = columns.next<base::OptionalDate>();
        interval.rawState = {.state = state, .started = started, .visited = visited};
    }
    return interval;
}

IntervalEntry intervalEntry(const RowReader& row) {
    Columns columns(row);
    IntervalEntry entry;
    entry.task = nextTask(columns);
    entry.key = columns.nextKey().value_or(0);
    entry.interval = nextInterval(columns);
    return entry;
}

// What the order of the newest looks at.
struct Age {
    std::optional<base::Date> created;
    objectstore::RowKey rowKey;

    std::optional<base::Date> creationDate() const { return created; }
    objectstore::RowKey key() const { return rowKey; }
};

bool isNewer(const Age& age, const Age& other) {
    return NewestFirst()(&age, &other);
}

}  // namespace

bool isNewer(const TaskEntry& task, const TaskEntry& other) {
    return isNewer(Age{task.creationDate, task.key}, Age{other.creationDate, other.key});
}

bool isNewer(const IntervalEntry& entry, const IntervalEntry& other) {
    return isNewer(Age{entry.interval.creationDate, entry.key},
                   Age{other.interval.creationDate, other.key});
}

StoreReader::StoreReader(const std::filesystem::path& directory, LeftRunning leftRunning)
    : leftRunning_(leftRunning) {
    const std::filesystem::path file = storeFile(directory);
    if (objectstore::storeFileState(file) == objectstore::StoreFileState::present) {
        reading_ = std::make_unique<objectstore::StoreReading>(file, hearthmarkModel());
    }
}

std::string StoreReader::doneDate() const {
    return reading_->version() < kVersionWithDone ? "NULL" : "t.doneDate";
}

IntervalRecord StoreReader::settled(const IntervalRecord& interval) const {
    return leftRunning_ == LeftRunning::isFinished ? finishedAtLastSight(interval) : interval;
}

std::optional<IntervalEntry> StoreReader::newestRunning() {
    std::optional<IntervalEntry> newest;
    if (!reading_) {
        return newest;
    }
    // Begins with the states, of which few run: no index knows them.
    reading_->read("SELECT " + (kTask + doneDate()) + ", " + kInterval +
                       " FROM RawIntervalState s JOIN Interval i ON i.pk = s.interval"
                       " JOIN Task t ON t.pk = i.task WHERE s.state = ?"
                       " AND s.pk = (SELECT max(pk) FROM RawIntervalState WHERE interval = i.pk)",
                   {std::int64_t{static_cast<std::int16_t>(StateCode::running)}},
                   [&newest](const RowReader& row) {
                       IntervalEntry entry = intervalEntry(row);
                       const auto& raw = entry.interval.rawState;
                       const bool isNamed = entry.interval.id && entry.task.id;
                       if (isNamed && raw && raw->started && (!newest || isNewer(entry, *newest))) {
                           newest = std::move(entry);
                       }
                   });
    return newest;
}

std::vector<TaskEntry> StoreReader::tasks() {
    std::vector<TaskEntry> tasks;
    if (reading_) {
        reading_->read("SELECT " + (kTask + doneDate()) + " FROM Task t ORDER BY t.pk", {},
                       [&tasks](const RowReader& row) {
                           Columns columns(row);
                           tasks.push_back(nextTask(columns));
                       });
    }
    return tasks;
}

std::vector<IntervalEntry> StoreReader::intervals(base::Date from, base::Date to) {
    std::vector<IntervalEntry> intervals;
    if (reading_) {
        // The order by key also keeps the query from going over the tasks first.
        reading_->read("SELECT " + (kTask + doneDate()) + ", " + kInterval +
                           " FROM Interval i CROSS JOIN Task t ON t.pk = i.task" + kState +
                           " WHERE i.creationDate >= ? AND i.creationDate < ? ORDER BY i.pk",
                       {from.sinceReferenceDate().count(), to.sinceReferenceDate().count()},
                       [this, &intervals](const RowReader& row) {
                           IntervalEntry entry = intervalEntry(row);
                           // An endless one is none.
                           if (entry.interval.creationDate) {
                               entry.interval = settled(entry.interval);
                               intervals.push_back(std::move(entry));
                           }
                       });
    }
    return intervals;
}

std::vector<TaskRecord> StoreReader::everything() {
    std::vector<TaskRecord> records;
    if (!reading_) {
        return records;
    }
    std::unordered_map<objectstore::RowKey, std::size_t> places;
    for (TaskEntry& task : tasks()) {
        places.emplace(task.key, records.size());
        records.push_back({.id = task.id,
                           .creationDate = task.creationDate,
                           .name = std::move(task.name),
                           .doneDate = task.doneDate,
                           .intervals = {},
                           .notes = {}});
    }
    const auto owner = [&](Columns& columns) -> TaskRecord* {
        const auto key = columns.nextKey();
        const auto place = key ? places.find(*key) : places.end();
        return place != places.end() ? &records[place->second] : nullptr;
    };
    reading_->read(
        std::string("SELECT i.task, ") + kInterval + " FROM Interval i" + kState + " ORDER BY i.pk",
        {}, [&](const RowReader& row) {
            Columns columns(row);
            if (TaskRecord* task = owner(columns)) {
                columns.nextKey();
                task->intervals.push_back(settled(nextInterval(columns)));
            }
        });
    reading_->read("SELECT n.task, n.id, n.creationDate, n.text FROM Note n ORDER BY n.pk", {},
                   [&](const RowReader& row) {
                       Columns columns(row);
                       if (TaskRecord* task = owner(columns)) {
                           NoteRecord note;
                           note.id = columns.next<std::optional<base::Uuid>>();
                           note.creationDate = columns.next<base::OptionalDate>();
                           note.text = columns.next<std::optional<std::string>>();
                           task->notes.push_back(std::move(note));
                       }
                   });
    return records;
}

IntervalRecord finishedAtLastSight(IntervalRecord interval) {
    const auto state = intervalState(interval);
    if (const IntervalState::Running* running = state ? state->asRunning() : nullptr) {
        interval.duration =
            totalDuration(interval.duration, state, running->visited.value_or(running->started));
        interval.rawState->state = static_cast<std::int16_t>(StateCode::finished);
        interval.rawState->started.reset();
    }
    return interval;
}

}  // namespace hearthmark::store
