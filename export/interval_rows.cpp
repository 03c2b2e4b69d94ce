// SPDX-License-Identifier: MIT
#include "export/interval_rows.h"

#include <algorithm>
#include <tuple>

#include "store/interval.h"

namespace hearthmark::exporting {

namespace {

std::optional<store::StateCode> codeOf(const std::optional<store::IntervalState>& state) {
    if (!state) {
        return std::nullopt;
    }
    return state->isRunning()  ? store::StateCode::running
           : state->isPaused() ? store::StateCode::paused
                               : store::StateCode::finished;
}

// Requires: it has a date.
IntervalRow row(const std::optional<base::Uuid>& taskId, const std::optional<std::string>& taskName,
                const store::IntervalRecord& interval, base::Date now) {
    const auto state = store::intervalState(interval);
    const base::Seconds timeSpent = store::totalDuration(interval.duration, state, now);
    const base::Date start = interval.creationDate.value();
    return {.taskId = taskId,
            .taskName = taskName,
            .id = interval.id,
            .start = start,
            .end = start + timeSpent,
            .timeSpent = timeSpent,
            .length = interval.maxDuration,
            .state = codeOf(state)};
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
        const store::Task& task = *interval->task();
        rows.push_back(row(task.id(), task.name(), store::record(*interval), now));
    }
    return rows;
}

std::vector<IntervalRow> intervalRows(std::vector<store::IntervalEntry> intervals, base::Date now) {
    std::ranges::sort(intervals, std::ranges::less(), [](const store::IntervalEntry& entry) {
        return std::tuple(entry.interval.creationDate->sinceReferenceDate().count(), entry.key);
    });
    std::vector<IntervalRow> rows;
    rows.reserve(intervals.size());
    for (const store::IntervalEntry& entry : intervals) {
        rows.push_back(row(entry.task.id, entry.task.name, entry.interval, now));
    }
    return rows;
}

}  // namespace hearthmark::exporting
