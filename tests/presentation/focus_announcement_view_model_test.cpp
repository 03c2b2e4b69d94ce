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
    base::Uuid second = base::Uuid::random();
    const auto start = [&](base::Seconds maximum) {
        second = *store
                      .addInterval(store.first<store::Task>(), IntervalState::running(at(1000)), 0s,
                                   maximum)
                      .id();
    };
    const auto undo = [&] { store.service->undo(*store.service->latestDeletion().value()); };
    const auto tick = [&](double now) {
        store.clock->time = at(now);
        store.service->finishDueIntervals();
    };
    struct Row {
        std::string change;
        std::function<void()> make;
        std::vector<std::string> told;
    };
    const std::string started = "Focus started: Letters, 30:00";
    for (const Row& row : std::vector<Row>{
             {"launch", [] {}, {}},
             {"start", [&] { start(1800s); }, {"", started}},
             {"tick", [&] { tick(1064); }, {}},
             {"stamp", [&] { store.service->markRunningIntervalsVisited(at(1064)); }, {}},
             {"sleep", [&] { store.service->excludeTime(at(1064), at(1064)); }, {}},
             {"pause", [&] { store.service->pauseRunningIntervals(); }, {}},
             {"resume", [&] { store.service->resumePausedIntervals(); }, {}},
             {"delete", [&] { store.service->deleteInterval(second, taskId); }, {}},
             {"undo", undo, {}},
             {"delete task", [&] { store.service->deleteTask(taskId); }, {}},
             {"undo of it", undo, {}},
             {"finish",
              [&] {
                  store.clock->time = at(1065);
                  store.service->finishInterval(second, taskId);
              },
              {"", "Focus finished: Letters, 1:05"}},
             {"two in a row",
              [&] {
                  start(0s);
                  start(1800s);
              },
              {"", "Focus started: Letters, 0", "", started}},
             {"two at once",
              [&] { tick(2800); },
              {"", "Focus finished: Letters, 30:00\nFocus finished: Letters, 30:00"}},
             {"finish of a deleted one",
              [&] {
                  start(3600s);
                  told.clear();
                  store.service->deleteInterval(second, taskId);
                  tick(9000);
              },
              {}},
             {"nothing known",
              [&] {
                  store.first<store::Task>().setName(std::nullopt);
                  start(-1s);
              },
              {"", "Focus started: -, -"}}}) {
        row.make();
        EXPECT_EQ(told, row.told) << row.change;
        told.clear();
        const auto standing = model->announcement().value();
        timers->fire();
        EXPECT_EQ(told, std::vector<std::string>(standing.empty() ? 0 : 1)) << row.change;
        EXPECT_EQ(timers->validTimers(), 0) << row.change;
        told.clear();
    }
}

}  // namespace hearthmark::presentation
