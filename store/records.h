// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "store/interval_state.h"

namespace hearthmark::objectstore {
class ManagedObjectContext;
}

namespace hearthmark::store {

class Interval;
class Note;
class Task;

// What rows hold, as values that outlive them.
struct IntervalRecord {
    struct RawState {
        std::int16_t state = 0;
        std::optional<base::Date> started;
        std::optional<base::Date> visited;
    };

    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    base::Seconds duration{0};
    base::Seconds maxDuration{0};
    std::optional<RawState> rawState;
};

struct NoteRecord {
    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    std::optional<std::string> text;
};

struct TaskRecord {
    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    std::optional<std::string> name;
    std::optional<base::Date> doneDate;
    // In the order in which they were made.
    std::vector<IntervalRecord> intervals;
    std::vector<NoteRecord> notes;
};

// Absent where there is none, or one that means nothing.
std::optional<IntervalState> intervalState(const IntervalRecord& interval);

IntervalRecord record(const Interval& interval);
NoteRecord record(const Note& note);
TaskRecord record(const Task& task);

// As new objects, which are not saved yet.
void insert(const IntervalRecord& record, Task& owner, objectstore::ManagedObjectContext& context);
void insert(const NoteRecord& record, Task& owner, objectstore::ManagedObjectContext& context);
Task& insert(const TaskRecord& record, objectstore::ManagedObjectContext& context);

}  // namespace hearthmark::store
