// SPDX-License-Identifier: MIT
#include "presentation/focus_announcement_view_model.h"

#include <gtest/gtest.h>

#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;
using store::IntervalState;
using tests::at;

TEST(FocusAnnouncementViewModel, SaysEachStartAndFinishOnceAndNothingElse) {
    tests::TestStore store;
    store::Task& letters = store.addTask("Letters");
    store.addInterval(letters, IntervalState::finished());
    store.addInterval(letters, IntervalState::running(at(1000)));
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    const auto model = std::make_shared<FocusAnnouncementViewModel>(timers);
    std::vector<std::string> told;
    const auto subscription = model->announcement().subscribeDidChange(
        [&] { told.push_back(model->announcement().value()); });
    model->startObserving(*store.liveData);

    const base::Uuid taskId = *letters.id();
    base::Uuid latest = base::Uuid::random();
    const auto start = [&](base::Seconds maximum) {
        auto& task = store.first<store::Task>();
        latest = *store.addInterval(task, IntervalState::running(at(1000)), 0s, maximum).id();
    };
    const auto tick = [&](double now) {
        store.clock->time = at(now);
        store.service->finishDueIntervals();
    };
    const auto undo = [&] { store.service->undo(*store.service->latestChange().value()); };
    // What is told meanwhile; it stands until its timer fires.
    const auto toldWhen = [&](const std::function<void()>& change) {
        told.clear();
        change();
        std::vector<std::string> all = std::exchange(told, {});
        timers->fire();
        EXPECT_EQ(told, std::vector<std::string>(all.empty() ? 0 : 1));
        EXPECT_EQ(timers->validTimers(), 0);
        return all;
    };
    using Told = std::vector<std::string>;
    EXPECT_EQ(told, Told()) << "what runs at the launch is not news";
    EXPECT_EQ(toldWhen([&] { start(1800s); }), (Told{"", "Focus started: Letters, 30:00"}));
    EXPECT_EQ(toldWhen([&] {
                  tick(1064);
                  store.service->markRunningIntervalsVisited(at(1064));
                  store.service->excludeTime(at(1064), at(1064));
                  store.service->pauseRunningIntervals();
                  store.service->resumePausedIntervals();
                  store.service->deleteInterval(latest, taskId);
                  undo();
                  store.service->deleteTask(taskId);
                  undo();
              }),
              Told());
    store.clock->time = at(1065);
    EXPECT_EQ(toldWhen([&] { store.service->finishInterval(latest, taskId); }),
              (Told{"", "Focus finished: Letters, 1:05"}));
    EXPECT_EQ(toldWhen([&] {
                  start(0s);
                  start(1800s);
              }),
              (Told{"", "Focus started: Letters, 0", "", "Focus started: Letters, 30:00"}));
    EXPECT_EQ(toldWhen([&] { tick(2800); }),
              (Told{"", "Focus finished: Letters, 30:00\nFocus finished: Letters, 30:00"}));
    toldWhen([&] { start(3600s); });
    store.service->deleteInterval(latest, taskId);
    EXPECT_EQ(toldWhen([&] { tick(9000); }), Told()) << "of one that was deleted";
    store.first<store::Task>().setName(std::nullopt);
    EXPECT_EQ(toldWhen([&] { start(-1s); }), (Told{"", "Focus started: -, -"}));
}

}  // namespace hearthmark::presentation
