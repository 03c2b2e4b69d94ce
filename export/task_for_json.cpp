// SPDX-License-Identifier: MIT
#include "export/task_for_json.h"

#include "store/note.h"
#include "store/raw_interval_state.h"

namespace hearthmark::exporting {

IntervalForJSON::IntervalForJSON(const store::Interval& interval)
    : id(interval.id()),
      creationDate(interval.creationDate()),
      duration(interval.duration()),
      maxDuration(interval.maxDuration()) {
    if (const store::RawIntervalState* raw = interval.rawState()) {
        state = {.started = raw->started(), .state = raw->state()};
    }
}

TaskForJSON::TaskForJSON(const store::Task& task)
    : id(task.id()), creationDate(task.creationDate()), name(task.name()) {
    intervals.reserve(task.intervals().size());
    for (const store::Interval* interval : task.intervals()) {
        intervals.emplace_back(*interval);
    }
    notes.reserve(task.notes().size());
    for (const store::Note* note : task.notes()) {
        notes.push_back(
            {.id = note->id(), .creationDate = note->creationDate(), .text = note->text()});
    }
}

}  // namespace hearthmark::exporting
