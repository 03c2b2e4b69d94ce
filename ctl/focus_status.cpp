// SPDX-License-Identifier: MIT
#include "ctl/focus_status.h"

#include <algorithm>

#include "ctl/program_lock.h"
#include "store/store_reader.h"

namespace hearthmark::ctl {

namespace {

std::string textOf(const std::optional<base::Uuid>& id) {
    return id ? id->text() : "";
}

}  // namespace

base::Seconds timeSpent(const FocusStatus& focus, base::Date now) {
    if (focus.isInterrupted) {
        return focus.spentBefore;
    }
    return focus.spentBefore + std::max(now - focus.start, base::Seconds(0));
}

std::optional<FocusStatus> focusInStore(const std::filesystem::path& directory) {
    using LeftRunning = store::StoreReader::LeftRunning;
    // Asked before the store is looked at: what a program writes that starts or ends meanwhile is
    // then at worst taken for what ran until a moment ago.
    const bool isRunning = isProgramRunning(directory);
    const auto newest = store::StoreReader(directory, LeftRunning::runs).newestRunning();
    if (!newest) {
        return std::nullopt;
    }
    const store::IntervalRecord& interval = newest->interval;
    return FocusStatus{.taskId = textOf(newest->task.id),
                       .taskName = newest->task.name.value_or(""),
                       .intervalId = textOf(interval.id),
                       .start = interval.rawState.value().started.value(),
                       .spentBefore = isRunning ? interval.duration
                                                : store::finishedAtLastSight(interval).duration,
                       .length = interval.maxDuration,
                       .isInterrupted = !isRunning};
}

}  // namespace hearthmark::ctl
