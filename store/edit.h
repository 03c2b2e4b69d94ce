// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <variant>
#include <vector>

#include "base/clock.h"
#include "base/date.h"
#include "base/uuid.h"
#include "store/counted_time.h"
#include "store/live_data.h"
#include "store/records.h"

namespace hearthmark::store {

// How long after its removal what ran goes on running when it is brought back. Later it comes back
// finished, with its time up to the removal.
constexpr base::Seconds kUndoTime{10};

// What changes what a person sees, as a value: each kind has its opposite, and those that set
// fields are their own. What it acts on is named by id, since a task that is brought back is made
// of new objects.

struct AddTask {
    TaskRecord task;
    // When it was removed; absent where it is new.
    std::optional<base::Date> removedAt;
};
// Together with its intervals and notes.
struct RemoveTask {
    base::Uuid taskId;
};

// An interval or a note into the store, and out of it.
template <class Record>
struct Add {
    Record record;
    base::Uuid taskId;
};
template <class Entity>
struct Remove {
    base::Uuid id;
    base::Uuid taskId;
};

// Out of its task's set. Meanwhile it stays in the store without a task; what ran goes on running.
template <class Entity>
struct Take {
    base::Uuid id;
    base::Uuid taskId;
};
struct ReturnInterval {
    std::shared_ptr<Interval> interval;
    base::Uuid taskId;
    base::Date takenAt;
    // Up to then; absent where it did not run.
    std::optional<base::Seconds> timeSpent;
};
struct ReturnNote {
    std::shared_ptr<Note> note;
    base::Uuid taskId;
};

struct RenameTask {
    base::Uuid taskId;
    std::optional<std::string> name;
};
// Nothing is done while it runs: there a mark is refused, and what comes in running takes it away.
struct MarkDone {
    base::Uuid taskId;
    // Absent where it is to be done no longer.
    std::optional<base::Date> doneDate;
};
struct EditNote {
    base::Uuid noteId;
    base::Uuid taskId;
    std::optional<std::string> text;
};
struct MoveNote {
    base::Uuid noteId;
    base::Uuid taskId;
    base::Uuid newTaskId;
};
// What is absent stays.
struct CorrectInterval {
    // From what was found to what is wanted. Where something else is found, since time has counted,
    // their difference is added to that.
    struct Time {
        CountedTime found;
        CountedTime wanted;
    };

    base::Uuid intervalId;
    base::Uuid taskId;
    std::optional<std::optional<base::Date>> creationDate;
    std::optional<Time> time;
    std::optional<base::Seconds> maxDuration;
    std::optional<base::Uuid> newTaskId;
    // For the task that it leaves: since when that was done before it came in.
    std::optional<base::Date> doneDate = std::nullopt;
};

// Many rows at once: whole tasks, and intervals and notes for tasks that are there.
struct AddMany {
    std::vector<TaskRecord> tasks;
    // What such a task is to get; its other fields do not count.
    std::vector<TaskRecord> additions;
    // When it was removed; absent where it is new.
    std::optional<base::Date> removedAt;
    // Whether more was removed than had been added.
    bool hasGrown = false;
};
// What is not there any more is passed over.
struct RemoveMany {
    struct Rows {
        base::Uuid taskId;
        std::unordered_set<base::Uuid> intervalIds;
        std::unordered_set<base::Uuid> noteIds;
    };

    // Together with all their intervals and notes; those named are what is known of.
    std::vector<Rows> tasks;
    // Out of these only what is named.
    std::vector<Rows> additions;
};

using Edit =
    std::variant<AddTask, RemoveTask, Add<IntervalRecord>, Remove<Interval>, Add<NoteRecord>,
                 Remove<Note>, Take<Interval>, ReturnInterval, Take<Note>, ReturnNote, RenameTask,
                 MarkDone, EditNote, MoveNote, CorrectInterval, AddMany, RemoveMany>;

// Changes the objects; the caller saves. Returns what takes it back; absent where an id matches
// nothing or all is so already, and then nothing is touched. Throws StoreError, since an interval
// that comes back finished is saved in between: who follows what finishes must not hear of it.
std::optional<Edit> apply(const Edit& edit, const Tasks& tasks,
                          objectstore::ManagedObjectContext& context, const base::Clock& clock);

}  // namespace hearthmark::store
