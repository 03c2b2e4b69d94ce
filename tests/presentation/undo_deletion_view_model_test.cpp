// SPDX-License-Identifier: MIT
#include "presentation/undo_deletion_view_model.h"

#include <gtest/gtest.h>

#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;

TEST(UndoDeletionViewModel, OffersEachDeletionForTenSecondsTheLatestFirst) {
    tests::TestStore store;
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    const auto model = std::make_shared<UndoDeletionViewModel>(store.service, timers, store.clock);
    model->startObserving();
    const auto text = [&model] {
        const auto& state = model->viewState().value();
        return state ? state->text : "nothing";
    };
    const auto undo = [&model] { (*livedata::Action(model->viewState().value()->onUndo))(); };
    const auto wait = [&](base::Seconds seconds) {
        store.clock->time = store.clock->time + seconds;
        timers->fire();
    };
    const base::Uuid first = *store.addTask("first").id();
    store::Task& second = store.addTask("second");
    const store::Interval& interval =
        store.addInterval(second, store::IntervalState::running(tests::at(990)));

    store.service->deleteTask(first);
    EXPECT_EQ(text(), "Task deleted: first");
    wait(6s);
    store.service->deleteInterval(*interval.id(), *second.id());
    EXPECT_EQ(text(), "Interval deleted");
    undo();
    EXPECT_EQ(text(), "Task deleted: first");
    EXPECT_EQ(store.sql("SELECT task FROM Interval"), "2");
    store.service->deleteTask(*second.id());
    wait(3.9s);
    undo();
    EXPECT_EQ(text(), "Task deleted: first");
    wait(0.1s);
    EXPECT_EQ(text(), "nothing");
    EXPECT_EQ(timers->validTimers(), 0);
    EXPECT_EQ(store.sql("SELECT name FROM Task"), "second");

    // A tick may come late.
    store.service->deleteTask(*store.first<store::Task>().id());
    const auto late = model->viewState().value()->onUndo;
    store.clock->time = store.clock->time + kUndoTime;
    (*late)();
    EXPECT_EQ(text(), "nothing");
    EXPECT_EQ(store.sql("SELECT name FROM Task"), "");
}

}  // namespace hearthmark::presentation
