// SPDX-License-Identifier: MIT
#include "store/task.h"

#include <utility>

#include "objectstore/entity_description.h"
#include "store/interval.h"
#include "store/note.h"

namespace hearthmark::store {

const objectstore::EntityDescription& Task::entity() {
    static const auto kDescription = objectstore::EntityDescription::of<Task>("Task")
                                         .attribute<&Task::id_>("id")
                                         .attribute<&Task::creationDate_>("creationDate")
                                         .attribute<&Task::name_>("name");
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

const Task::IntervalSummary& Task::intervalSummary() const {
    if (!intervalSummary_) {
        IntervalSummary summary;
        for (const Interval* interval : intervals_) {
            if (interval->isRunning()) {
                summary.running.push_back(interval);
            } else {
                summary.settledDuration += interval->duration();
            }
            const auto& created = interval->creationDate();
            if (created && (!summary.latestCreation || *summary.latestCreation < *created)) {
                summary.latestCreation = created;
            }
        }
        intervalSummary_ = std::move(summary);
    }
    return *intervalSummary_;
}

}  // namespace hearthmark::store
