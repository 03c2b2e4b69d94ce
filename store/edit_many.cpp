// SPDX-License-Identifier: MIT
#include "store/edit_many.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "objectstore/managed_object_context.h"
#include "store/bringing_back.h"
#include "store/interval.h"
#include "store/note.h"

namespace hearthmark::store {

namespace {

// One after another would be looked for among all others.
std::unordered_map<base::Uuid, Task*> tasksById(const Tasks& tasks) {
    std::unordered_map<base::Uuid, Task*> found;
    for (Task& task : tasks) {
        if (task.id()) {
            found.emplace(*task.id(), &task);
        }
    }
    return found;
}

RemoveMany::Rows rowsOf(const TaskRecord& record) {
    RemoveMany::Rows rows{.taskId = record.id.value(), .intervalIds = {}, .noteIds = {}};
    for (const IntervalRecord& interval : record.intervals) {
        rows.intervalIds.insert(interval.id.value_or(base::Uuid()));
    }
    for (const NoteRecord& note : record.notes) {
        rows.noteIds.insert(note.id.value_or(base::Uuid()));
    }
    return rows;
}

template <class Record>
bool hasOthers(const std::vector<Record>& records, const std::unordered_set<base::Uuid>& ids) {
    return std::ranges::any_of(records, [&ids](const Record& each) {
        return !ids.contains(each.id.value_or(base::Uuid()));
    });
}

template <class Record, class Entity>
std::vector<Record> removeNamed(std::vector<Entity*> entities,
                                const std::unordered_set<base::Uuid>& ids,
                                objectstore::ManagedObjectContext& context) {
    std::vector<Record> removed;
    for (Entity* entity : entities) {
        if (entity->id() && ids.contains(*entity->id())) {
            removed.push_back(record(*entity));
            context.remove(*entity);
        }
    }
    return removed;
}

}  // namespace

std::optional<Edit> addMany(const AddMany& edit, const Tasks& tasks,
                            objectstore::ManagedObjectContext& context, base::Date now) {
    const std::unordered_map<base::Uuid, Task*> found = tasksById(tasks);
    RemoveMany inverse;
    for (const TaskRecord& record : edit.tasks) {
        if (!found.contains(record.id.value())) {
            bringBack(record, edit.removedAt, context, now);
            inverse.tasks.push_back(rowsOf(record));
        }
    }
    for (const TaskRecord& record : edit.additions) {
        const auto task = found.find(record.id.value());
        if (task == found.end()) {
            continue;
        }
        for (const IntervalRecord& interval : record.intervals) {
            insert(interval, *task->second, context);
        }
        for (const NoteRecord& note : record.notes) {
            insert(note, *task->second, context);
        }
        inverse.additions.push_back(rowsOf(record));
    }
    const bool isEmpty = inverse.tasks.empty() && inverse.additions.empty();
    return isEmpty ? std::nullopt : std::optional<Edit>(std::move(inverse));
}

std::optional<Edit> removeMany(const RemoveMany& edit, const Tasks& tasks,
                               objectstore::ManagedObjectContext& context, base::Date now) {
    const std::unordered_map<base::Uuid, Task*> found = tasksById(tasks);
    AddMany inverse{.tasks = {}, .additions = {}, .removedAt = now, .hasGrown = false};
    for (const RemoveMany::Rows& rows : edit.tasks) {
        if (const auto task = found.find(rows.taskId); task != found.end()) {
            const TaskRecord& removed = inverse.tasks.emplace_back(record(*task->second));
            inverse.hasGrown = inverse.hasGrown || hasOthers(removed.intervals, rows.intervalIds) ||
                               hasOthers(removed.notes, rows.noteIds);
            context.remove(*task->second);
        }
    }
    for (const RemoveMany::Rows& rows : edit.additions) {
        const auto task = found.find(rows.taskId);
        if (task == found.end()) {
            continue;
        }
        TaskRecord removed;
        removed.id = rows.taskId;
        removed.intervals =
            removeNamed<IntervalRecord>(task->second->intervals(), rows.intervalIds, context);
        removed.notes = removeNamed<NoteRecord>(task->second->notes(), rows.noteIds, context);
        if (!removed.intervals.empty() || !removed.notes.empty()) {
            inverse.additions.push_back(std::move(removed));
        }
    }
    const bool isEmpty = inverse.tasks.empty() && inverse.additions.empty();
    return isEmpty ? std::nullopt : std::optional<Edit>(std::move(inverse));
}

}  // namespace hearthmark::store
