// SPDX-License-Identifier: MIT
#include "store/deletion.h"

#include <algorithm>

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

}  // namespace hearthmark::store
