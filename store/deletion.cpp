// SPDX-License-Identifier: MIT
#include "store/deletion.h"

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

std::optional<DeletedTask::RawState> rawState(const Interval& interval) {
    if (interval.rawState() == nullptr) {
        return std::nullopt;
    }
    return DeletedTask::RawState{.state = interval.rawState()->state(),
                                 .started = interval.rawState()->started(),
                                 .visited = interval.rawState()->visited()};
}

}  // namespace

DeletedTask deletedTask(const Task& task) {
    DeletedTask deleted{.id = task.id(),
                        .creationDate = task.creationDate(),
                        .name = task.name(),
                        .intervals = {},
                        .notes = {}};
    for (const Interval* interval : inOrderOfMaking(task.intervals())) {
        deleted.intervals.push_back({.id = interval->id(),
                                     .creationDate = interval->creationDate(),
                                     .duration = interval->duration(),
                                     .maxDuration = interval->maxDuration(),
                                     .rawState = rawState(*interval)});
    }
    for (const Note* note : inOrderOfMaking(task.notes())) {
        deleted.notes.push_back(
            {.id = note->id(), .creationDate = note->creationDate(), .text = note->text()});
    }
    return deleted;
}

void putBack(const DeletedTask& deleted, objectstore::ManagedObjectContext& context) {
    const auto owner = context.insert<Task>();
    owner->setId(deleted.id);
    owner->setCreationDate(deleted.creationDate);
    owner->setName(deleted.name);
    for (const DeletedTask::Interval& each : deleted.intervals) {
        const auto interval = context.insert<Interval>();
        interval->setId(each.id);
        interval->setCreationDate(each.creationDate);
        interval->setDuration(each.duration);
        interval->setMaxDuration(each.maxDuration);
        if (each.rawState) {
            const auto rawState = context.insert<RawIntervalState>();
            rawState->setState(each.rawState->state);
            rawState->setStarted(each.rawState->started);
            rawState->setVisited(each.rawState->visited);
            interval->setRawState(rawState.get());
        }
        owner->addIntervalsObject(*interval);
    }
    for (const DeletedTask::Note& each : deleted.notes) {
        const auto note = context.insert<Note>();
        note->setId(each.id);
        note->setCreationDate(each.creationDate);
        note->setText(each.text);
        owner->addNotesObject(*note);
    }
}

}  // namespace hearthmark::store
