// SPDX-License-Identifier: MIT
#include "presentation/history_view_model.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;
using store::IntervalState;
using tests::at;
using Column = HistoryViewState::Column;

constexpr base::Seconds kDay = 24h;

struct HistoryViewModelTest : testing::Test {
    HistoryViewModelTest() {
        ::setenv("TZ", "UTC", 1);
        store.clock->time = on(20.5);  // 2001-01-21, a Sunday
        a = &store.addTask("a");
        z = &store.addTask("Z");
        spend(*a, 13.9, 100s);  // Sunday before
        spend(*a, 14, 30s);
        spend(*z, 19, 60s);
        spend(*z, 20, 10s);
        spend(*a, 31, 1h);  // in February
    }

    static base::Date on(double day) { return at(day * kDay.count()); }
    void spend(store::Task& task, double day, base::Seconds time) {
        store.addInterval(task, IntervalState::finished(), time, 0s, on(day));
    }
    std::shared_ptr<HistoryViewModel> open() {
        auto model = std::make_shared<HistoryViewModel>(
            HistoryViewModel::Parts{.liveDataFactory = store.liveData,
                                    .timeKeepingProvider = timers,
                                    .clock = store.clock,
                                    .calendar = std::make_shared<base::LocalCalendar>(),
                                    .firstDayOfWeek = std::chrono::Monday,
                                    .choice = choice});
        model->startObserving();
        return model;
    }
    // Bars that are not empty, total, rows.
    static std::string shown(const std::shared_ptr<HistoryViewModel>& model) {
        const HistoryViewState::View& view = model->viewState().value().value();
        std::string text;
        for (const auto& bar : view.bars) {
            text += bar.bar.share > 0
                        ? std::to_string(&bar - view.bars.data()) + '=' + bar.bar.timeSpent + ' '
                        : "";
        }
        text += view.canGoForward ? "> " : "";
        text += '(' + view.total + ')';
        for (const auto& row : view.rows) {
            text += ' ' + row->taskName + ' ' + row->timeSpent + ' ' +
                    std::to_string(row->permille.value_or(-1)) + '/' + std::to_string(row->focuses);
        }
        return text;
    }

    tests::TestStore store;
    std::shared_ptr<tests::FakeTimeKeepingProvider> timers =
        std::make_shared<tests::FakeTimeKeepingProvider>();
    std::shared_ptr<HistoryChoice> choice = std::make_shared<HistoryChoice>();
    store::Task* a = nullptr;
    store::Task* z = nullptr;
};

TEST_F(HistoryViewModelTest, GoesThroughRangesAndNarrowsThemToABar) {
    const auto model = open();
    using Model = HistoryViewModel;
    const std::vector<std::pair<std::function<void(Model&)>, std::string>> steps{
        {[](Model&) {}, "0=30 5=1:00 6=10 (1:40) Z 1:10 700/2 a 30 300/1"},
        {[](Model& m) { m.go(1); }, "0=30 5=1:00 6=10 (1:40) Z 1:10 700/2 a 30 300/1"},
        {[](Model& m) { m.go(-1); }, "6=1:40 > (1:40) a 1:40 1000/1"},
        {[](Model& m) { m.go(-1); }, "6=1:40 > (1:40) a 1:40 1000/1"},  // nothing is earlier
        {[](Model& m) { m.go(1); }, "0=30 5=1:00 6=10 (1:40) Z 1:10 700/2 a 30 300/1"},
        {[](Model& m) { m.choose(5); }, "0=30 5=1:00 6=10 (1:00) Z 1:00 1000/1"},
        {[](Model& m) { m.choose(7); }, "0=30 5=1:00 6=10 (1:00) Z 1:00 1000/1"},  // none such
        {[](Model& m) { m.setUnit(HistoryUnit::day); }, "0=1:00 > (1:00) Z 1:00 1000/1"},
        {[](Model& m) { m.setUnit(HistoryUnit::month); },
         "13=1:40 14=30 19=1:00 20=10 (3:20) a 2:10 650/2 Z 1:10 350/2"},
        {[](Model& m) { m.sortBy(Column::task); },
         "13=1:40 14=30 19=1:00 20=10 (3:20) a 2:10 650/2 Z 1:10 350/2"},
        {[](Model& m) { m.sortBy(Column::task); },
         "13=1:40 14=30 19=1:00 20=10 (3:20) Z 1:10 350/2 a 2:10 650/2"},
        {[](Model& m) { m.setUnit(HistoryUnit::all); },
         "0=1:03:20 (1:03:20) Z 1:10 18/2 a 1:02:10 982/3"},
        {[](Model& m) { m.setUnit(HistoryUnit::year); },
         "0=3:20 1=1:00:00 (1:03:20) Z 1:10 18/2 a 1:02:10 982/3"},
        {[](Model& m) { m.goToToday(); }, "0=3:20 1=1:00:00 (1:03:20) Z 1:10 18/2 a 1:02:10 982/3"},
    };
    for (std::size_t step = 0; step < steps.size(); ++step) {
        steps[step].first(*model);
        EXPECT_EQ(shown(model), steps[step].second) << "after step " << step;
    }
    choice->day = std::chrono::sys_days(base::kReferenceDay);
    EXPECT_EQ(shown(open()), shown(model)) << "the same year and order";
}

TEST_F(HistoryViewModelTest, TellsHowLongTheDaysOfEachWeekdayAreOfThoseWithAFocus) {
    const auto model = open();
    store.addInterval(*a, IntervalState::running(on(20.5)), 0s, 0s, on(20.5));
    const auto means = [&model] {
        std::string text;
        for (const auto& mean : model->viewState().value()->weekdayMeans) {
            text += mean.timeSpent + ' ';
        }
        return text;
    };
    using Model = HistoryViewModel;
    const std::vector<std::pair<std::function<void(Model&)>, std::string>> steps{
        {[](Model&) {}, ""},
        {[](Model& m) { m.setUnit(HistoryUnit::month); }, "30 - - - - 1:00 56 "},
        {[](Model& m) { m.choose(13); }, ""},
        {[](Model& m) { m.setUnit(HistoryUnit::year); }, "30 - - 1:00:00 - 1:00 56 "},
        {[](Model& m) { m.choose(1); }, "- - - 1:00:00 - - - "},
    };
    store.clock->time = on(20.5) + 3s;
    timers->fire();
    for (std::size_t step = 0; step < steps.size(); ++step) {
        steps[step].first(*model);
        EXPECT_EQ(means(), steps[step].second) << "after step " << step;
    }
}

TEST_F(HistoryViewModelTest, CountsWhatRunsAndMakesOnlyItsRowAnew) {
    const auto model = open();
    store.addInterval(*a, IntervalState::running(on(20.5)), 0s, 0s, on(20.5));
    const HistoryViewState::Rows before = model->viewState().value()->rows;
    store.clock->time = on(20.5) + 1s;
    timers->fire();
    EXPECT_EQ(shown(model), "0=30 5=1:00 6=11 (1:41) Z 1:10 693/2 a 31 307/2");
    model->choose(6);
    const auto narrowed = model->viewState().value()->rows;
    store.clock->time = on(20.5) + 20s;
    timers->fire();
    EXPECT_EQ(shown(model), "0=30 5=1:00 6=30 (30) a 20 667/1 Z 10 333/1") << "the order follows";
    store.service->pauseRunningIntervals();
    const HistoryViewState::Rows settled = model->viewState().value()->rows;
    timers->fire();
    EXPECT_EQ(model->viewState().value()->rows, settled) << "the very same rows";
    // Monday: it is today that was looked at.
    store.clock->time = on(21);
    timers->fire();
    EXPECT_EQ(shown(model), "(0)");
    model->go(-1);
    EXPECT_EQ(shown(model), "0=30 5=1:00 6=30 > (2:00) Z 1:10 583/2 a 50 417/2");
}

}  // namespace hearthmark::presentation
