// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "livedata/block.h"
#include "livedata/shared_list.h"
#include "services/focus.h"

namespace hearthmark::presentation {

// The view makes the labels of its buttons from them too.
using services::kLongFocus;
using services::kMoreFocus;
using services::kShortFocus;

// What the detail pane shows of one task and what can be done there.
struct TaskDetailViewState {
    TaskDetailViewState() = delete;

    struct RunningInterval {
        base::Uuid intervalId;
        livedata::Action onDeleteCommand;
        std::string totalTimeSpent;
        // Towards its maximum, from 0 to 1.
        double progress;
        std::optional<base::Date> creationDate;
        // By kMoreFocus; absent where it has no length.
        livedata::Action onExtend;

        bool operator==(const RunningInterval&) const = default;
    };

    struct NonRunningInterval {
        base::Uuid intervalId;
        livedata::Action onDeleteCommand;
        std::string totalTimeSpent;
        std::optional<base::Date> creationDate;
        // What a finished one is short of its length, a second at least.
        std::optional<base::Seconds> rest;

        bool operator==(const NonRunningInterval&) const = default;
    };

    // Both lists from the newest interval to the oldest. What does not run is the same list as
    // before where nothing of it has changed.
    struct View {
        // No interval of any task is running.
        bool canStartFocus;
        livedata::Action onStartLongFocusTap;
        livedata::Action onStartShortFocusTap;
        // Of any length.
        livedata::ActionOn<base::Seconds> onStartFocus;
        livedata::SharedList<NonRunningInterval> nonRunningIntervals;
        std::vector<RunningInterval> runningIntervals;
        std::string taskName;
        std::string totalTimeSpent;
        bool isDone = false;
        // Makes that the other; absent while the task runs.
        livedata::Action onDoneTap{};

        bool operator==(const View&) const = default;
    };
};

}  // namespace hearthmark::presentation
