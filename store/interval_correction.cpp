// SPDX-License-Identifier: MIT
#include "store/interval_correction.h"

#include "store/interval.h"

namespace hearthmark::store {

CorrectInterval correctingEdit(const Interval& interval, const base::Uuid& intervalId,
                               const base::Uuid& taskId, const IntervalCorrection& correction,
                               base::Date now) {
    CorrectInterval edit{.intervalId = intervalId,
                         .taskId = taskId,
                         .creationDate = std::nullopt,
                         .time = std::nullopt,
                         .maxDuration = correction.maxDuration,
                         .newTaskId = correction.taskId};
    if (correction.creationDate) {
        edit.creationDate = correction.creationDate;
    }
    base::Seconds more{0};
    if (correction.timeSpent) {
        more = *correction.timeSpent - interval.totalDuration(now);
    } else if (correction.creationDate && interval.creationDate() && interval.isRunning()) {
        more = *interval.creationDate() - *correction.creationDate;
    }
    if (more != base::Seconds(0)) {
        const CountedTime time = countedTime(interval);
        edit.time = {.found = time, .wanted = withMore(time, more, now)};
    }
    return edit;
}

}  // namespace hearthmark::store
