// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "base/date.h"
#include "base/uuid.h"
#include "livedata/published.h"
#include "presentation/live_tasks.h"
#include "presentation/task_versions.h"
#include "services/owned_timer.h"
#include "services/ports/time_keeping.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// How many days the overview shows, today included.
constexpr int kOverviewDays = 14;

// What the overview of the last days shows.
struct FocusOverviewViewState {
    FocusOverviewViewState() = delete;

    struct Day {
        base::Date start;
        std::string timeSpent;
        // Of the longest of the days, or of an hour where that is more; from 0 to 1.
        double share;

        bool operator==(const Day&) const = default;
    };

    struct View {
        std::string today;
        // Oldest first; the last one is today. Empty where the clock is out of all calendars.
        std::vector<Day> days;

        bool operator==(const View&) const = default;
    };
};

// Makes the overview of all tasks, or of one: the time of the intervals by the local day on which
// each was created. Intervals without a task are not counted.
class FocusOverviewViewModel final : public std::enable_shared_from_this<FocusOverviewViewModel> {
 public:
    // To be held by a shared pointer: its closures hold it weakly. Without a task it is of all.
    FocusOverviewViewModel(
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock, std::shared_ptr<const base::Calendar> calendar,
        std::optional<base::Uuid> taskId);

    // Absent until observation has begun.
    livedata::Published<std::optional<FocusOverviewViewState::View>>& viewState() {
        return viewState_;
    }

    // Called once.
    void startObserving();

 private:
    void follow(const store::Tasks& tasks);
    // Of the tasks that are followed, at this moment.
    void rebuild();
    // Where now may be of another day than before.
    void renewDays();
    // The interval's time to that of its day, where it is one of them.
    void add(const store::Interval& interval, std::vector<base::Seconds>& spent) const;

    livedata::Published<std::optional<FocusOverviewViewState::View>> viewState_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<const base::Calendar> calendar_;
    std::optional<base::Uuid> taskId_;
    std::shared_ptr<LiveTasks> liveTasks_;
    // Where each day begins, and tomorrow.
    std::vector<base::Date> starts_;
    // They keep those alive of which something runs.
    store::Tasks tasks_;
    std::vector<const store::Task*> running_;
    // Of each day, without what runs, and what it was made of. Empty where the days are new.
    std::vector<base::Seconds> settledSpent_;
    TaskVersions versions_;
    // For midnight, and for a change of the time zone.
    services::OwnedTimer timer_;
};

}  // namespace hearthmark::presentation
