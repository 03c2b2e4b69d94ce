// SPDX-License-Identifier: MIT
#include "export/interval_rows.h"

#include <algorithm>
#include <tuple>

#include "store/interval.h"

namespace hearthmark::exporting {

namespace {

std::optional<store::StateCode> stateOf(const store::Interval& interval) {
    const auto state = interval.intervalState();
    if (!state) {
        return std::nullopt;
    }
    return state->isRunning()  ? store::StateCode::running
           : state->isPaused() ? store::StateCode::paused
                               : store::StateCode::finished;
}

IntervalRow row(const store::Interval& interval, base::Date start, base::Date now) {
    const base::Seconds timeSpent = interval.totalDuration(now);
    const store::Task& task = *interval.task();
    return {.taskId = task.id(),
            .taskName = task.name(),
            .id = interval.id(),
            .start = start,
            .end = start + timeSpent,
            .timeSpent = timeSpent,
            .length = interval.maxDuration(),
            .state = stateOf(interval)};
}

}  // namespace

std::vector<IntervalRow> intervalRows(const store::Tasks& tasks, base::Date from, base::Date to,
                                      base::Date now) {
    std::vector<const store::Interval*> found;
    for (const store::Task& task : tasks) {
        for (const store::Interval* interval : task.intervals()) {
            const auto start = interval->creationDate();
            if (start && *start >= from && *start < to) {
                found.push_back(interval);
            }
        }
    }
    std::ranges::sort(found, std::ranges::less(), [](const store::Interval* interval) {
        return std::tuple(interval->creationDate()->sinceReferenceDate().count(), interval->key());
    });
    std::vector<IntervalRow> rows;
    rows.reserve(found.size());
    for (const store::Interval* interval : found) {
        rows.push_back(row(*interval, *interval->creationDate(), now));
    }
    return rows;
}

}  // namespace hearthmark::exporting
