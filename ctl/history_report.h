// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/uuid.h"
#include "presentation/history_range.h"
#include "store/store_reader.h"

namespace hearthmark::ctl {

// What the page of the history shows of a range, with the same sums.
struct HistoryReport {
    struct TaskTime {
        std::optional<base::Uuid> id;
        std::optional<std::string> name;
        base::Seconds spent{0};
        std::size_t focuses = 0;
        bool isRunning = false;
    };

    presentation::HistoryRange range;
    // When its parts begin, and the one after them.
    std::vector<base::Date> starts;
    std::vector<base::Seconds> parts;
    base::Seconds total{0};
    std::size_t focuses = 0;
    // The longest time first.
    std::vector<TaskTime> tasks;
};

// Of the intervals that were begun in the range, whose parts begin at `starts`.
HistoryReport historyReport(const presentation::HistoryRange& range, std::vector<base::Date> starts,
                            std::vector<store::IntervalEntry> intervals, base::Date now);

// For a person, in lines.
std::string plainText(const HistoryReport& report);
std::string jsonText(const HistoryReport& report);

}  // namespace hearthmark::ctl
