// SPDX-License-Identifier: MIT
#include "export/task_for_json.h"

#include "store/interval.h"
#include "store/note.h"
#include "store/raw_interval_state.h"

namespace hearthmark::exporting {

namespace {

std::optional<IntervalStateForJSON> stateForJSON(const store::Interval& interval) {
    const store::RawIntervalState* raw = interval.rawState();
    if (raw == nullptr) {
        return std::nullopt;
    }
    return IntervalStateForJSON{.started = raw->started(), .state = raw->state()};
}

}  // namespace

TaskForJSON taskForJSON(const store::Task& task) {
    TaskForJSON made{.id = task.id(),
                     .creationDate = task.creationDate(),
                     .name = task.name(),
                     .intervals = {},
                     .notes = {}};
    made.intervals.reserve(task.intervals().size());
    for (const store::Interval* interval : task.intervals()) {
        made.intervals.push_back({.id = interval->id(),
                                  .creationDate = interval->creationDate(),
                                  .duration = interval->duration(),
                                  .maxDuration = interval->maxDuration(),
                                  .state = stateForJSON(*interval)});
    }
    made.notes.reserve(task.notes().size());
    for (const store::Note* note : task.notes()) {
        made.notes.push_back(
            {.id = note->id(), .creationDate = note->creationDate(), .text = note->text()});
    }
    return made;
}

TaskForJSON taskForJSON(const store::TaskRecord& task) {
    TaskForJSON made{.id = task.id,
                     .creationDate = task.creationDate,
                     .name = task.name,
                     .intervals = {},
                     .notes = {}};
    for (const store::IntervalRecord& interval : task.intervals) {
        made.intervals.push_back({.id = interval.id,
                                  .creationDate = interval.creationDate,
                                  .duration = interval.duration,
                                  .maxDuration = interval.maxDuration,
                                  .state = std::nullopt});
        if (const auto& raw = interval.rawState) {
            made.intervals.back().state = {.started = raw->started, .state = raw->state};
        }
    }
    for (const store::NoteRecord& note : task.notes) {
        made.notes.push_back({.id = note.id, .creationDate = note.creationDate, .text = note.text});
    }
    return made;
}

}  // namespace hearthmark::exporting
