// SPDX-License-Identifier: MIT
#include "presentation/focus_overview_view_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;
using store::IntervalState;
using tests::at;

constexpr base::Seconds kDay = 24h;

TEST(FocusOverviewViewModel, CountsEachIntervalOnTheLocalDayOfItsCreation) {
    tests::TestStore store;
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    ::setenv("TZ", "UTC", 1);
    const auto calendar = std::make_shared<base::LocalCalendar>();
    store.clock->time = at(20.5 * kDay.count());
    const auto on = [](double day) { return at(day * kDay.count()); };
    store::Task& one = store.addTask("one");
    store::Task& other = store.addTask("other");
    const auto add = [&store, &on](store::Task& task, double day, base::Seconds spent) {
        return *store.addInterval(task, IntervalState::finished(), spent, 0s, on(day)).id();
    };
    add(one, 6.99, 1h);  // too long ago
    add(one, 7, 100s);
    add(one, 20, 30s);
    add(other, 19.9, 50s);
    add(other, 21, 2h);  // tomorrow
    store.service->deleteInterval(add(one, 20, 1h), *one.id());
    store.addInterval(one, IntervalState::running(on(20.5)), 10s, 0s, on(20.25));

    const auto overview = [&](std::optional<base::Uuid> taskId) {
        auto model = std::make_shared<FocusOverviewViewModel>(store.liveData, timers, store.clock,
                                                              calendar, taskId);
        model->startObserving();
        return model;
    };
    const auto text = [](const std::shared_ptr<FocusOverviewViewModel>& model) {
        const FocusOverviewViewState::View& view = model->viewState().value().value();
        std::string all = view.today + ':';
        for (const FocusOverviewViewState::Day& day : view.days) {
            if (day.share > 0) {
                all += ' ' + std::to_string(&day - view.days.data()) + '=' + day.timeSpent + '/' +
                       std::to_string(std::lround(day.share * 3600));
            }
        }
        return all;
    };
    const auto all = overview(std::nullopt);
    EXPECT_EQ(text(all), "40: 0=1:40/100 12=50/50 13=40/40");
    EXPECT_EQ(all->viewState().value()->days.back().start, on(20));
    EXPECT_EQ(text(overview(other.id())), "0: 12=50/50");
    store.clock->time = store.clock->time + 5s;
    timers->fire();
    EXPECT_EQ(text(all), "45: 0=1:40/100 12=50/50 13=45/45");
    // An hour is the least that fills the chart. Midnight, and a journey to the west, with nothing
    // running.
    store.service->pauseRunningIntervals();
    store.clock->time = on(21.01);
    timers->fire();
    EXPECT_EQ(text(all), "2:00:00: 11=50/25 12=45/23 13=2:00:00/3600");
    ::setenv("TZ", "<-03>3", 1);
    timers->fire();
    EXPECT_EQ(text(all), "2:00:15: 12=1:20/40 13=2:00:15/3600");
}

}  // namespace hearthmark::presentation
