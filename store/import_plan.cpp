// SPDX-License-Identifier: MIT
#include "store/import_plan.h"

#include <unordered_set>
#include <utility>

#include "objectstore/managed_object_context.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

using Ids = std::unordered_set<base::Uuid>;

template <class Entity>
Ids idsIn(const objectstore::ManagedObjectContext& context) {
    const auto objects = context.objects<Entity>();
    Ids ids;
    ids.reserve(objects.size());
    for (const Entity& object : objects) {
        if (object.id()) {
            ids.insert(*object.id());
        }
    }
    return ids;
}

// Those that are new, which then are no longer.
template <class Record>
std::vector<Record> newOf(const std::vector<Record>& records, Ids& ids, ImportCounts& counts) {
    std::vector<Record> added;
    for (const Record& record : records) {
        if (!record.id) {
            ++counts.withoutId;
        } else if (ids.insert(*record.id).second) {
            added.push_back(record);
        }
    }
    return added;
}

void finish(IntervalRecord& interval) {
    constexpr auto kFinished = static_cast<std::int16_t>(StateCode::finished);
    if (interval.rawState &&
        (interval.rawState->state == static_cast<std::int16_t>(StateCode::paused) ||
         interval.rawState->state == static_cast<std::int16_t>(StateCode::running))) {
        interval.rawState = {.state = kFinished, .started = std::nullopt, .visited = std::nullopt};
    }
}

}  // namespace

ImportPlan planImport(const std::vector<TaskRecord>& tasks,
                      const objectstore::ManagedObjectContext& context) {
    Ids taskIds = idsIn<Task>(context);
    Ids intervalIds = idsIn<Interval>(context);
    Ids noteIds = idsIn<Note>(context);
    ImportPlan plan;
    ImportCounts& counts = plan.counts;
    for (const TaskRecord& task : tasks) {
        if (!task.id) {
            counts.withoutId += 1 + task.intervals.size() + task.notes.size();
            continue;
        }
        const bool isNew = taskIds.insert(*task.id).second;
        TaskRecord added{.id = task.id,
                         .creationDate = task.creationDate,
                         .name = task.name,
                         .doneDate = task.doneDate,
                         .intervals = newOf(task.intervals, intervalIds, counts),
                         .notes = newOf(task.notes, noteIds, counts)};
        for (IntervalRecord& interval : added.intervals) {
            finish(interval);
        }
        counts.tasks += isNew ? 1 : 0;
        counts.intervals += added.intervals.size();
        counts.notes += added.notes.size();
        if (isNew) {
            plan.edit.tasks.push_back(std::move(added));
        } else if (!added.intervals.empty() || !added.notes.empty()) {
            plan.edit.additions.push_back(std::move(added));
        }
    }
    return plan;
}

}  // namespace hearthmark::store
