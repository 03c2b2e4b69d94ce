// SPDX-License-Identifier: MIT
#include "presentation/history_sums.h"

#include <algorithm>

#include "presentation/time_bars.h"
#include "store/interval.h"

namespace hearthmark::presentation {

namespace {

class Sum {
 public:
    Sum(const std::vector<base::Date>& starts, ChosenPart chosen)
        : starts_(starts), chosen_(chosen) {
        sums_.parts.resize(starts.empty() ? 0 : starts.size() - 1);
    }

    void begin(const store::Task& task) { time_ = {.task = &task}; }

    void add(const store::Interval& interval, base::Seconds spent) {
        const auto part = partAt(starts_, interval.creationDate());
        if (part) {
            sums_.parts[*part] += spent;
            if (!chosen_ || chosen_ == part) {
                time_.spent += spent;
                ++time_.focuses;
            }
        }
    }

    void end() {
        if (time_.focuses > 0) {
            sums_.tasks.push_back(time_);
        }
    }

    HistorySums sums() && { return std::move(sums_); }

 private:
    const std::vector<base::Date>& starts_;
    ChosenPart chosen_;
    HistorySums::TaskTime time_;
    HistorySums sums_;
};

}  // namespace

std::optional<base::Date> firstFocus(const store::Tasks& tasks, const base::Calendar& calendar) {
    std::optional<base::Date> first;
    const auto look = [&first, &calendar](const auto& intervals) {
        // Newest first; what has no date comes before all.
        for (auto each = intervals.rbegin(); each != intervals.rend(); ++each) {
            const std::optional<base::Date> created = (*each)->creationDate();
            if (!created || (first && *created >= *first)) {
                return;
            }
            if (calendar.localTime(*created)) {
                first = created;
                return;
            }
        }
    };
    for (const store::Task& task : tasks) {
        look(task.intervalSummary()->settled->intervals);
        look(task.intervalSummary()->running);
    }
    return first;
}

HistorySums settledSums(const store::Tasks& tasks, const std::vector<base::Date>& starts,
                        ChosenPart chosen) {
    Sum sum(starts, chosen);
    if (starts.empty()) {
        return std::move(sum).sums();
    }
    for (const store::Task& task : tasks) {
        sum.begin(task);
        // Newest first; what has no date comes before all.
        const auto& intervals = task.intervalSummary()->settled->intervals;
        const auto isLater = [&starts](const store::Interval* interval) {
            const auto created = interval->creationDate();
            return !created || *created >= starts.back();
        };
        for (auto each = std::ranges::partition_point(intervals, isLater);
             each != intervals.end() && *(*each)->creationDate() >= starts.front(); ++each) {
            sum.add(**each, (*each)->duration());
        }
        sum.end();
    }
    return std::move(sum).sums();
}

HistorySums runningSums(const std::vector<const store::Task*>& tasks,
                        const std::vector<base::Date>& starts, ChosenPart chosen, base::Date now) {
    Sum sum(starts, chosen);
    for (const store::Task* task : tasks) {
        sum.begin(*task);
        for (const store::Interval* interval : task->intervalSummary()->running) {
            sum.add(*interval, interval->totalDuration(now));
        }
        sum.end();
    }
    return std::move(sum).sums();
}

}  // namespace hearthmark::presentation
