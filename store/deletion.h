// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"

namespace hearthmark::objectstore {
class ManagedObjectContext;
}

namespace hearthmark::store {

class Interval;
class Note;
class Task;

// A task with all that was deleted with it, as it was.
struct DeletedTask {
    struct RawState {
        std::int16_t state = 0;
        std::optional<base::Date> started;
        std::optional<base::Date> visited;

        bool operator==(const RawState&) const = default;
    };
    struct Interval {
        std::optional<base::Uuid> id;
        std::optional<base::Date> creationDate;
        base::Seconds duration{0};
        base::Seconds maxDuration{0};
        std::optional<RawState> rawState;

        bool operator==(const Interval&) const = default;
    };
    struct Note {
        std::optional<base::Uuid> id;
        std::optional<base::Date> creationDate;
        std::optional<std::string> text;

        bool operator==(const Note&) const = default;
    };

    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    std::optional<std::string> name;
    // In the order in which they were made.
    std::vector<Interval> intervals;
    std::vector<Note> notes;

    bool operator==(const DeletedTask&) const = default;
};

// Before it is deleted: afterwards it has no intervals and notes.
DeletedTask deletedTask(const Task& task);

// As new objects, which are not saved yet.
void putBack(const DeletedTask& deleted, objectstore::ManagedObjectContext& context);

// An interval or a note that was taken out of its task's set. It lives on in the store.
struct TakenInterval {
    std::shared_ptr<Interval> interval;
    base::Uuid taskId;
};
struct TakenNote {
    std::shared_ptr<Note> note;
    base::Uuid taskId;
};

// What a deletion took away.
using Deletion = std::variant<DeletedTask, TakenInterval, TakenNote>;

}  // namespace hearthmark::store
