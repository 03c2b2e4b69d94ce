// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "presentation/undo_deletion_view_model.h"
#include "presentation/undo_menu_view_model.h"
#include "presentation/view_model_factories.h"
#include "support/shown_text.h"
#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;
using store::IntervalState;
using store::Task;
using tests::at;

class ViewModelTest : public testing::Test {
 protected:
    auto makeList() {
        auto model =
            TaskListVMFactory(store.service, store.liveData, timers, store.clock, selection)
                .makeViewModel();
        EXPECT_FALSE(model->viewState().value());
        model->startObserving();
        return model;
    }
    auto makeDetail(const Task& shown) {
        auto model =
            TaskDetailVMFactory(store.service, store.liveData, *shown.id(), timers, store.clock)
                .makeViewModel();
        EXPECT_FALSE(model->viewState().value());
        model->startObserving();
        return model;
    }

    template <class ViewModel>
    static std::string text(ViewModel& model) {
        return tests::text(model.viewState().value().value());
    }
    // Kept during the call, as the adapter does: an action may replace the state that holds it.
    static void call(livedata::Action action) { (*std::exchange(action, nullptr))(); }

    tests::TestStore store;
    std::shared_ptr<tests::FakeTimeKeepingProvider> timers =
        std::make_shared<tests::FakeTimeKeepingProvider>();
    std::shared_ptr<SelectedTaskId> selection = std::make_shared<SelectedTaskId>(std::nullopt);
};

TEST_F(ViewModelTest, TheListShowsRunningTasksApartNewestFirstWithTheirTimes) {
    const auto model = makeList();
    EXPECT_EQ(text(*model), "|") << "a state, if an empty one";
    Task& older = store.addTask("older", at(1));
    store.addInterval(older, IntervalState::running(at(940)), 5s, 1500s, at(10));
    store.addInterval(older, IntervalState::running(at(2000)), 7s, 0s, at(20));
    store.addInterval(older, IntervalState::finished(), 3600s);
    store.addInterval(store.addTask("newer", at(2)), IntervalState::running(at(999)));
    Task& idle = store.addTask("idle", at(2));
    store.addInterval(idle, IntervalState::paused(), 10s);
    store.addInterval(idle, IntervalState::finished(), 50s);
    store.addTask("", at(3));
    Task& damaged = store.addTask("damaged", at(1));
    damaged.setName(std::nullopt);
    store.addInterval(damaged, IntervalState::finished(), -10s);
    store.addTask("without id").setId(std::nullopt);
    store.context().save();
    EXPECT_EQ(text(*model),
              "newer 1 (1/30:00 Finish) older 1:01:12 (7/0 Finish) (1:05/25:00 Finish) |"
              "  0 Finish idle 1:00 Finish - - Finish");
}

TEST_F(ViewModelTest, TheListRefreshesOnceASecondWhileSomethingRuns) {
    Task& task = store.addTask("a");
    auto model = makeList();
    EXPECT_TRUE(timers->timers.empty());
    store.addInterval(task, IntervalState::running(at(1000)));
    store.addInterval(task, IntervalState::running(at(1000)));
    ASSERT_EQ(timers->timers.size(), 1) << "a timer that runs is left alone";
    EXPECT_EQ(timers->timers[0]->interval, base::Seconds(1s));
    store.clock->time = at(1061);
    timers->fire();
    EXPECT_EQ(text(*model), "a 2:02 (1:01/30:00 Finish) (1:01/30:00 Finish) |");
    const auto finish = [&model] {
        call(model->viewState().value()->runningItems[0].intervalViewStates[0].onButtonTap);
    };
    finish();
    EXPECT_EQ(timers->validTimers(), 1);
    finish();
    EXPECT_EQ(timers->validTimers(), 0);
    EXPECT_EQ(text(*model), "| a 2:02 Finish");

    store.addInterval(task, IntervalState::running(at(1000)));
    EXPECT_EQ(timers->validTimers(), 1);
    const auto item = model->viewState().value()->runningItems[0];
    model.reset();
    EXPECT_EQ(timers->validTimers(), 0) << "it goes with the model";
    timers->timers.back()->action();
    call(item.intervalViewStates[0].onDeleteCommand);
    call(item.onItemTapped);
    EXPECT_EQ(store.context().objects<Task>().size(), 1) << "nor does an action do anything";
    EXPECT_EQ(selection->value(), std::nullopt);
}

TEST_F(ViewModelTest, TheListSelectsTheTappedRowAndDeletesItsTask) {
    store.addTask("a", at(2));
    store.addInterval(store.addTask("b", at(1)), IntervalState::running(at(1000)));
    const auto model = makeList();
    const auto publisher = std::make_shared<SelectedTaskIdPublisher>(*selection);
    const auto home = HomeVMFactory(store.service, publisher).makeViewModel();
    EXPECT_EQ(home->selectedTaskId().value(), std::nullopt);
    const auto& view = model->viewState().value();
    call(view->nonRunningItems[0].onItemTapped);
    EXPECT_EQ(text(*model), "b 0 (0/30:00 Finish) | *a 0 Finish");
    call(view->runningItems[0].onItemTapped);
    EXPECT_EQ(text(*model), "*b 0 (0/30:00 Finish) | a 0 Finish");
    const base::Uuid selected = view->runningItems[0].taskId;
    EXPECT_EQ(home->selectedTaskId().value(), selected);

    call(view->runningItems[0].intervalViewStates[0].onDeleteCommand);
    EXPECT_EQ(text(*model), "| a 0 Finish");
    EXPECT_EQ(home->selectedTaskId().value(), selected) << "the selection outlives its task";
    call(view->nonRunningItems[0].onDeleteCommand);
    EXPECT_EQ(text(*model), "|");
}

TEST_F(ViewModelTest, TheDetailShowsRunningIntervalsApartNewestFirst) {
    Task& task = store.addTask("a");
    store.addInterval(task, IntervalState::paused(), 1s, 60s, at(1));
    store.addInterval(task, IntervalState::running(at(990)), 2s, 60s, at(2));
    store.addInterval(task, IntervalState::finished(), 3s, 60s, at(3));
    store.addInterval(task, IntervalState::running(at(2000)), 4s, 60s, at(4));
    store.addInterval(task, IntervalState::finished(), -1s, 60s, at(5));
    store.addInterval(task, IntervalState::paused(), 100s).rawState()->setState(std::int16_t{9});
    store.addInterval(task, IntervalState::paused(), 1000s).setId(std::nullopt);
    store.context().save();
    const auto model = makeDetail(task);
    EXPECT_EQ(text(*model), "a 18:39 4/1:00+ 12/1:00+ | - 3/1:00>57 1/1:00");
    store.clock->time = at(1001);
    timers->fire();
    EXPECT_EQ(text(*model), "a 18:40 4/1:00+ 13/1:00+ | - 3/1:00>57 1/1:00");
}

TEST_F(ViewModelTest, TheDetailStartsAFocusReadingTheClockTwice) {
    store.clock->step = 1s;
    for (const auto start : {&TaskDetailViewState::View::onStartShortFocusTap,
                             &TaskDetailViewState::View::onStartLongFocusTap}) {
        const auto model = makeDetail(store.addTask("a"));
        store.clock->time = at(1000);
        call(model->viewState().value().value().*start);
    }
    EXPECT_EQ(store.sql("SELECT task, creationDate, started, visited, duration, maxDuration FROM "
                        "Interval i JOIN RawIntervalState r ON r.interval = i.pk"),
              "1|1000.0|1001.0|NULL|0.0|1800.0 2|1000.0|1001.0|NULL|0.0|3600.0");
}

TEST_F(ViewModelTest, TheDetailContinuesWithTheRestAndExtendsByFiveMinutes) {
    Task& task = store.addTask("a");
    for (const auto& [duration, length] :
         {std::pair(60.5s, 100s), {99.5s, 100s}, {100s, 100s}, {5s, 0s}}) {
        store.addInterval(task, IntervalState::finished(), duration, length);
    }
    const auto model = makeDetail(task);
    EXPECT_EQ(text(*model), "+a 4:25 | 5/0 1:40/1:40 1:39/1:40 1:00/1:40>40");
    const auto& view = model->viewState().value();
    call(view->onDoneTap);
    EXPECT_TRUE(view->isDone);
    call(view->onDoneTap);
    EXPECT_FALSE(view->isDone);
    call(view->onDoneTap);
    (*std::shared_ptr(view->onStartFocus))(*view->nonRunningIntervals[3].rest);
    EXPECT_TRUE(!view->isDone && !view->onDoneTap) << "as long as it runs";
    EXPECT_EQ(text(*model), "a 4:25 0/40+ | 5/0 1:40/1:40 1:39/1:40 1:00/1:40>40");
    call(view->runningIntervals[0].onExtend);
    EXPECT_EQ(store.sql("SELECT duration, maxDuration FROM Interval WHERE pk IN (1, 5)"),
              "60.5|100.0 0.0|340.0");
    store.addInterval(task, IntervalState::running(at(1000)), 0s, 0s);
    EXPECT_FALSE(view->runningIntervals[1].onExtend) << "without a limit there is none to move";
}

TEST_F(ViewModelTest, TheDetailDeletesOnlyTheIntervalOfARow) {
    Task& task = store.addTask("a");
    store.addInterval(task, IntervalState::running(at(1000)), 1s);
    store.addInterval(task, IntervalState::finished(), 2s);
    auto model = makeDetail(task);
    call(model->viewState().value()->nonRunningIntervals[0].onDeleteCommand);
    EXPECT_EQ(text(*model), "a 1 1/30:00+ |");
    const auto action = model->viewState().value()->runningIntervals[0].onDeleteCommand;
    call(action);
    EXPECT_EQ(text(*model), "+a 0 |");
    EXPECT_EQ(timers->validTimers(), 1) << "what was taken out goes on running";
    model.reset();
    EXPECT_EQ(timers->validTimers(), 0);
    timers->timers[0]->action();
    call(action);
}

TEST_F(ViewModelTest, AddTaskStoresTheNameTrimmedAndAnEmptyOneAsItIs) {
    const auto model = AddTaskVMFactory(store.service).makeViewModel();
    model->addTask(" \n two words\u00a0\r\n");
    model->addTask("   ");
    EXPECT_EQ(store.sql("SELECT quote(name) FROM Task"), "'two words' ''");
}

TEST_F(ViewModelTest, UndoOffersEachDeletionForTenSecondsTheLatestFirst) {
    const auto history = std::make_shared<store::UndoHistory>(store.service);
    const auto model =
        std::make_shared<UndoDeletionViewModel>(store.service, history, timers, store.clock);
    model->startObserving();
    const auto menu = std::make_shared<UndoMenuViewModel>(history);
    menu->startObserving();
    const auto offered = [&model] {
        const auto& state = model->viewState().value();
        return state ? state->text : "nothing";
    };
    const auto undo = [&model] { call(model->viewState().value()->onUndo); };
    const auto wait = [&](base::Seconds seconds) {
        store.clock->time = store.clock->time + seconds;
        timers->fire();
    };
    const base::Uuid first = *store.addTask("first").id();
    store::Task& second = store.addTask("second");
    const store::Interval& interval =
        store.addInterval(second, store::IntervalState::running(tests::at(990)));

    store.service->deleteTask(first);
    EXPECT_EQ(offered(), "Task deleted: first");
    wait(6s);
    store.service->deleteInterval(*interval.id(), *second.id());
    EXPECT_EQ(offered(), "Interval deleted");
    undo();
    EXPECT_EQ(offered(), "Task deleted: first");
    EXPECT_EQ(store.sql("SELECT task FROM Interval"), "2");
    store.service->deleteTask(*second.id());
    wait(3.9s);
    undo();
    EXPECT_EQ(offered(), "Task deleted: first");
    wait(0.1s);
    EXPECT_EQ(offered(), "nothing");
    EXPECT_EQ(timers->validTimers(), 0);
    EXPECT_EQ(store.sql("SELECT name FROM Task"), "second");

    // A tick may come late.
    store.service->deleteTask(*store.first<store::Task>().id());
    const auto late = model->viewState().value()->onUndo;
    store.clock->time = store.clock->time + store::kUndoTime;
    (*late)();
    EXPECT_EQ(offered(), "nothing");
    EXPECT_EQ(store.sql("SELECT name FROM Task"), "");

    // The menu goes on, and what it takes back is offered no more.
    const base::Uuid third = *store.addTask("third").id();
    store.service->renameTask(third, "renamed");
    store.service->markTaskDone(third);
    store.service->deleteTask(third);
    EXPECT_EQ(menu->viewState().value().undo->text, "Undo Delete “renamed”");
    call(menu->viewState().value().undo->onTap);
    EXPECT_EQ(offered(), "nothing");
    EXPECT_EQ(menu->viewState().value().undo->text, "Undo Mark “renamed” Done");
    call(menu->viewState().value().undo->onTap);
    EXPECT_EQ(menu->viewState().value().undo->text, "Undo Rename “renamed”");
    EXPECT_EQ(menu->viewState().value().redo->text, "Redo Mark “renamed” Done");
    call(menu->viewState().value().undo->onTap);
    call(menu->viewState().value().undo->onTap);
    EXPECT_EQ(menu->viewState().value().undo->text, "Undo Delete “first”");
    EXPECT_EQ(store.sql("SELECT name FROM Task ORDER BY pk"), "third second");
    store.service->renameTask(third, "another");
    EXPECT_FALSE(menu->viewState().value().redo);

    // A task that goes with what was started on it is offered, whatever is changed then.
    store.service->createTask("new");
    EXPECT_EQ(offered(), "nothing");
    const auto added = base::Uuid::fromText(store.sql("SELECT id FROM Task WHERE name = 'new'"));
    const base::Date now = store.clock->time;
    store.service->addInterval({.creationDate = now,
                                .duration = 0s,
                                .id = base::Uuid::random(),
                                .maxDuration = 1800s,
                                .state = store::IntervalState::running(now)},
                               added.value());
    history->undo();
    EXPECT_EQ(offered(), "Task deleted: new");
    history->redo();
    EXPECT_EQ(offered(), "nothing");
    history->undo();
    store.service->renameTask(third, "third");
    undo();
    EXPECT_EQ(offered(), "nothing");
    EXPECT_EQ(menu->viewState().value().undo->text, "Undo Add “new”");
    EXPECT_EQ(store.sql("SELECT t.name, r.state FROM Task t JOIN Interval i ON i.task = t.pk"
                        " JOIN RawIntervalState r ON r.interval = i.pk WHERE t.name = 'new'"),
              "new|1");
}

}  // namespace hearthmark::presentation
