// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "livedata/published.h"
#include "presentation/history_sums.h"
#include "presentation/history_view_state.h"
#include "presentation/live_tasks.h"
#include "presentation/task_versions.h"
#include "presentation/weekday_means.h"
#include "services/owned_timer.h"
#include "services/ports/time_keeping.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// Makes the page of the history: the time of the intervals of tasks in a range of the calendar.
// Sums of what does not run are remembered; a tick adds what runs, and makes only those rows anew
// that it changes.
class HistoryViewModel final : public std::enable_shared_from_this<HistoryViewModel> {
 public:
    struct Parts {
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory;
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider;
        std::shared_ptr<const base::Clock> clock;
        std::shared_ptr<const base::Calendar> calendar;
        std::chrono::weekday firstDayOfWeek;
        // Outlives the page.
        std::shared_ptr<HistoryChoice> choice;
    };

    // To be held by a shared pointer: its closures hold it weakly.
    explicit HistoryViewModel(Parts parts) : parts_(std::move(parts)) {}

    // Absent until observation has begun.
    livedata::Published<std::optional<HistoryViewState::View>>& viewState() { return viewState_; }

    // Called once.
    void startObserving();

    // Of the chosen part where one is chosen, else of the day that was last looked for.
    void setUnit(HistoryUnit unit);
    // By so many ranges, as far as it goes.
    void go(int count);
    void goToToday();
    // The same one again takes the choice back.
    void choose(std::size_t part);
    // Answers whether one was chosen.
    bool takeChoiceBack();
    // The same one again the other way round.
    void sortBy(HistoryViewState::Column column);

 private:
    // What there is to know of a row before it is put in words.
    struct Entry {
        HistorySums::TaskTime settled;
        // Of what is shown in `row`.
        base::Seconds spent{0};
        std::shared_ptr<const HistoryViewState::Row> row = nullptr;
        // Made when they are sorted by it.
        std::string foldedName = {};
    };

    void follow(const store::Tasks& tasks);
    // At this moment.
    void rebuild();
    bool canGoBack() const;
    void renewRange();
    void show(std::optional<std::chrono::year_month_day> day);
    void sumAnew();
    void renewRows(const HistorySums& running, base::Seconds total);
    void sortRows();

    Parts parts_;
    livedata::Published<std::optional<HistoryViewState::View>> viewState_;
    std::shared_ptr<LiveTasks> liveTasks_;
    std::optional<std::chrono::year_month_day> today_;
    // Of the first focus.
    std::optional<std::chrono::year_month_day> earliest_;
    HistoryRange range_;
    // When the parts begin, and the range after this one. Empty where the clock is out of all
    // calendars.
    std::vector<base::Date> starts_;
    ChosenPart chosen_;
    // Keeps the tasks alive to which the sums point.
    store::Tasks tasks_;
    std::vector<const store::Task*> running_;
    TaskVersions versions_;
    bool isSummed_ = false;
    std::vector<base::Seconds> settledParts_;
    WeekdayMeans weekdayMeans_;
    std::vector<Entry> entries_;
    // Places in `entries_`.
    std::vector<std::size_t> order_;
    // For midnight, and for a change of the time zone.
    services::OwnedTimer timer_;
};

}  // namespace hearthmark::presentation
