// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "base/calendar.h"
#include "base/date.h"
#include "store/live_data.h"
#include "store/task.h"

namespace hearthmark::presentation {

// What of some tasks' intervals falls into the parts of a range: each wholly into the part in which
// it was created.
struct HistorySums {
    struct TaskTime {
        const store::Task* task = nullptr;
        base::Seconds spent{0};
        std::size_t focuses = 0;
    };

    // Of each part, whichever is chosen.
    std::vector<base::Seconds> parts;
    // In the order of the tasks, those alone of which there is an interval in the chosen part, or
    // where none is in any.
    std::vector<TaskTime> tasks;
};

// The part alone, or where there is none all of them.
using ChosenPart = std::optional<std::size_t>;

// When the first interval of the tasks was created that the calendar knows; absent where there is
// none.
std::optional<base::Date> firstFocus(const store::Tasks& tasks, const base::Calendar& calendar);

// Of what does not run. It looks a range up in the sorted intervals of each task, so it costs the
// number of tasks and what lies in the range: with ten years 2 ms.
HistorySums settledSums(const store::Tasks& tasks, const std::vector<base::Date>& starts,
                        ChosenPart chosen);

// Of what runs, as of that moment.
HistorySums runningSums(const std::vector<const store::Task*>& tasks,
                        const std::vector<base::Date>& starts, ChosenPart chosen, base::Date now);

}  // namespace hearthmark::presentation
