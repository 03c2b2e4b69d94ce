// SPDX-License-Identifier: MIT
#include "store/records.h"

#include <algorithm>

#include "objectstore/managed_object_context.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/raw_interval_state.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

// Rows that are otherwise equal are shown in the order of their keys.
template <class Entity>
std::vector<const Entity*> inOrderOfMaking(const std::vector<Entity*>& entities) {
    std::vector<const Entity*> sorted(entities.begin(), entities.end());
    std::ranges::sort(sorted, {}, [](const Entity* entity) { return entity->key(); });
    return sorted;
}

}  // namespace

std::optional<IntervalState> intervalState(const IntervalRecord& interval) {
    const auto& raw = interval.rawState;
    return raw ? intervalState(raw->state, raw->started, raw->visited) : std::nullopt;
}

IntervalRecord record(const Interval& interval) {
    IntervalRecord record{.id = interval.id(),
                          .creationDate = interval.creationDate(),
                          .duration = interval.duration(),
                          .maxDuration = interval.maxDuration(),
                          .rawState = std::nullopt};
    if (const RawIntervalState* rawState = interval.rawState()) {
        record.rawState = {.state = rawState->state(),
                           .started = rawState->started(),
                           .visited = rawState->visited()};
    }
    return record;
}

NoteRecord record(const Note& note) {
    return {.id = note.id(), .creationDate = note.creationDate(), .text = note.text()};
}

TaskRecord record(const Task& task) {
    TaskRecord made{.id = task.id(),
                    .creationDate = task.creationDate(),
                    .name = task.name(),
                    .doneDate = task.doneDate(),
                    .intervals = {},
                    .notes = {}};
    for (const Interval* interval : inOrderOfMaking(task.intervals())) {
        made.intervals.push_back(record(*interval));
    }
    for (const Note* note : inOrderOfMaking(task.notes())) {
        made.notes.push_back(record(*note));
    }
    return made;
}

void insert(const IntervalRecord& record, Task& owner, objectstore::ManagedObjectContext& context) {
    const auto interval = context.insert<Interval>();
    interval->setId(record.id);
    interval->setCreationDate(record.creationDate);
    interval->setDuration(record.duration);
    interval->setMaxDuration(record.maxDuration);
    if (record.rawState) {
        const auto rawState = context.insert<RawIntervalState>();
        rawState->setState(record.rawState->state);
        rawState->setStarted(record.rawState->started);
        rawState->setVisited(record.rawState->visited);
        interval->setRawState(rawState.get());
    }
    owner.addIntervalsObject(*interval);
}

void insert(const NoteRecord& record, Task& owner, objectstore::ManagedObjectContext& context) {
    const auto note = context.insert<Note>();
    note->setId(record.id);
    note->setCreationDate(record.creationDate);
    note->setText(record.text);
    owner.addNotesObject(*note);
}

Task& insert(const TaskRecord& record, objectstore::ManagedObjectContext& context) {
    const auto task = context.insert<Task>();
    task->setId(record.id);
    task->setCreationDate(record.creationDate);
    task->setName(record.name);
    task->setDoneDate(record.doneDate);
    for (const IntervalRecord& interval : record.intervals) {
        insert(interval, *task, context);
    }
    for (const NoteRecord& note : record.notes) {
        insert(note, *task, context);
    }
    return *task;
}

}  // namespace hearthmark::store
