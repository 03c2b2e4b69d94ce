// SPDX-License-Identifier: MIT
#include "store/task.h"

#include <utility>

#include "objectstore/entity_description.h"
#include "store/interval.h"
#include "store/newest_first.h"
#include "store/note.h"

namespace hearthmark::store {

const objectstore::EntityDescription& Task::entity() {
    static const auto kDescription = objectstore::EntityDescription::of<Task>("Task")
                                         .attribute<&Task::id_>("id")
                                         .attribute<&Task::creationDate_>("creationDate")
                                         .attribute<&Task::name_>("name")
                                         .attribute<&Task::doneDate_>("doneDate");
    return kDescription;
}

objectstore::FetchRequest<Task> Task::fetchRequest() {
    return {.sortDescriptor = {.key = "creationDate", .ascending = true}};
}

void Task::addIntervalsObject(Interval& interval) {
    interval.setTask(this);
}

void Task::removeIntervalsObject(Interval& interval) {
    if (interval.task() == this) {
        interval.setTask(nullptr);
    }
}

void Task::addNotesObject(Note& note) {
    note.setTask(this);
}

void Task::removeNotesObject(Note& note) {
    if (note.task() == this) {
        note.setTask(nullptr);
    }
}

const std::shared_ptr<const Task::IntervalSummary>& Task::intervalSummary() const {
    if (!intervalSummary_) {
        auto summary = std::make_shared<IntervalSummary>();
        SettledIntervals settled;
        for (const Interval* interval : intervals_) {
            if (interval->isRunning()) {
                summary->running.push_back(interval);
            } else {
                settled.intervals.push_back(interval);
                settled.duration += interval->duration();
            }
        }
        sortNewestFirst(summary->running);
        sortNewestFirst(settled.intervals);
        if (!settledIntervals_ || settledIntervals_->intervals != settled.intervals) {
            settledIntervals_ = std::make_shared<const SettledIntervals>(std::move(settled));
        }
        summary->settled = settledIntervals_;
        intervalSummary_ = std::move(summary);
    }
    return intervalSummary_;
}

const std::shared_ptr<const std::vector<const Note*>>& Task::newestNotes() const {
    if (!areNotesCurrent_) {
        std::vector<const Note*> notes(notes_.begin(), notes_.end());
        sortNewestFirst(notes);
        if (!newestNotes_ || *newestNotes_ != notes) {
            newestNotes_ = std::make_shared<const std::vector<const Note*>>(std::move(notes));
        }
        areNotesCurrent_ = true;
    }
    return newestNotes_;
}

void Task::willChange() {
    intervalSummary_.reset();
    areNotesCurrent_ = false;
}

void Task::intervalWillChange(const Interval& interval) {
    intervalSummary_.reset();
    if (!interval.isRunning()) {
        settledIntervals_.reset();
    }
}

void Task::noteWillChange() {
    newestNotes_.reset();
    areNotesCurrent_ = false;
}

}  // namespace hearthmark::store
