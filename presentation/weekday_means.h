// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <vector>

#include "base/calendar.h"
#include "base/date.h"
#include "presentation/history_range.h"
#include "presentation/history_sums.h"
#include "presentation/history_view_state.h"
#include "store/live_data.h"
#include "store/task.h"

namespace hearthmark::presentation {

// How long the days of each weekday are in a stretch of the history.
class WeekdayMeans {
 public:
    // Sums what does not run. A day and a week have no means. The tasks outlive this, or the next
    // call.
    void sumAnew(const store::Tasks& tasks, const HistoryRange& range,
                 const base::Calendar& calendar);

    // With what runs, as of that moment. From that weekday on.
    std::vector<HistoryViewState::WeekdayMean> means(const std::vector<const store::Task*>& running,
                                                     base::Date now,
                                                     std::chrono::weekday firstDayOfWeek) const;

 private:
    std::chrono::weekday first_{};
    // When the days begin, and at the end that after them.
    std::vector<base::Date> starts_;
    std::vector<base::Seconds> settled_;
};

}  // namespace hearthmark::presentation
