// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/found_ranges.h"
#include "base/uuid.h"
#include "livedata/block.h"
#include "livedata/shared_list.h"

namespace hearthmark::presentation {

// What the task list shows and what can be done in it.
struct TaskListViewState {
    TaskListViewState() = delete;

    // A text in which a search found something, and where.
    struct FoundText {
        std::string text;
        std::vector<base::TextRange> marked;

        bool operator==(const FoundText&) const = default;
    };

    // What a search found in a task.
    struct Match {
        FoundText name;
        // A line of a note, where the name does not hold all words.
        std::optional<FoundText> note;

        bool operator==(const Match&) const = default;
    };

    struct RunningItemInterval {
        std::string button;
        base::Uuid intervalId;
        livedata::Action onButtonTap;
        // Deletes the whole task: the menu belongs to the task's row, which has one for all its
        // lines.
        livedata::Action onDeleteCommand;
        std::string timeSpent;
        // Towards its maximum, from 0 to 1.
        double progress;

        bool operator==(const RunningItemInterval&) const = default;
    };

    struct RunningItem {
        bool isSelected;
        base::Uuid taskId;
        std::vector<RunningItemInterval> intervalViewStates;
        std::string taskName;
        std::string timeSpent;
        livedata::Action onItemTapped;
        // Null where it does not match, and without a search.
        std::shared_ptr<const Match> match{};

        bool operator==(const RunningItem&) const = default;
    };

    struct NonRunningItem {
        bool isSelected;
        livedata::Action onDeleteCommand;
        base::Uuid taskId;
        std::string taskName;
        std::string timeSpent;
        // "Finish" here too, though there is nothing to finish; views do not draw it.
        std::string button;
        livedata::Action onItemTapped;
        // Since when the task is done; absent where it is not.
        std::optional<base::Date> doneDate{};
        std::shared_ptr<const Match> match{};

        bool operator==(const NonRunningItem&) const = default;
    };

    // Both lists from the newest task to the oldest, with all tasks, also while a search is for
    // some of them. What does not run is the same list as before where nothing of it has changed.
    struct View {
        std::vector<RunningItem> runningItems;
        livedata::SharedList<NonRunningItem> nonRunningItems;
        bool isSearchOpen = false;
        // Of all tasks; absent while no word is searched for.
        std::optional<std::size_t> matchCount{};

        bool operator==(const View&) const = default;
    };
};

}  // namespace hearthmark::presentation
