// SPDX-License-Identifier: MIT
#include "store/bringing_back.h"

#include "objectstore/managed_object_context.h"
#include "store/edit.h"
#include "store/interval.h"
#include "store/raw_interval_state.h"
#include "store/task.h"

namespace hearthmark::store {

// A clock that was set back tells nothing of how long ago it was.
bool goesOnRunning(base::Date removedAt, base::Date now) {
    return removedAt <= now && now <= removedAt + kUndoTime;
}

void close(Interval& interval, base::Seconds timeSpent) {
    interval.setDuration(timeSpent);
    interval.rawState()->close();
}

void bringBack(const TaskRecord& task, const std::optional<base::Date>& removedAt,
               objectstore::ManagedObjectContext& context, base::Date now) {
    const Task& inserted = insert(task, context);
    if (!removedAt || goesOnRunning(*removedAt, now)) {
        return;
    }
    for (Interval* interval : inserted.intervals()) {
        if (interval->isRunning()) {
            close(*interval, interval->totalDuration(*removedAt));
        }
    }
}

}  // namespace hearthmark::store
