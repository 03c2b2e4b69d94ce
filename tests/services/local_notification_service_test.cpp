// SPDX-License-Identifier: MIT
#include "services/local_notification_service.h"

#include <gtest/gtest.h>

#include "support/test_store.h"

namespace hearthmark::services {

using namespace std::chrono_literals;
using store::IntervalState;
using tests::at;

TEST(LocalNotificationService, PostsWhatFinishesInATaskAndNothingElse) {
    tests::TestStore store;
    store::Task& task = store.addTask("a");
    auto center = std::make_shared<tests::FakeNotificationCenter>();
    const CurrentNotificationCenter current = [&center] { return center; };
    const auto service = std::make_shared<LocalNotificationService>(
        store.liveData,
        std::make_shared<QuickFocus>(store.service, *store.liveData, store.clock, current), current,
        base::FatalErrorHandler());
    service->startObserving();
    const auto run = [&] {
        return *store.addInterval(task, IntervalState::running(at(900)), 0s, 200s).id();
    };
    const base::Uuid first = run();
    store.service->pauseRunningIntervals();
    store.service->finishInterval(first, *task.id());
    EXPECT_TRUE(center->added.empty()) << "it did not run";
    run();
    store.service->pauseRunningIntervals();
    store.service->resumePausedIntervals();
    store.service->deleteInterval(run(), *task.id());
    store.clock->time = at(9000);
    store.service->finishDueIntervals();
    EXPECT_EQ(store.sql("SELECT state FROM RawIntervalState"), "2 2 2");
    ASSERT_EQ(center->added.size(), 1);
    const auto buttons = center->added.front().content.buttons;
    ASSERT_EQ(buttons.size(), 2);
    for (const NotificationButton& button : buttons) {
        (*button.onTap)();
        store.clock->time = store.clock->time + 400s;
        store.service->finishDueIntervals();
    }
    EXPECT_EQ(store.sql("SELECT maxDuration FROM Interval ORDER BY pk DESC LIMIT 2"),
              "200.0 300.0");
    store.service->finishInterval(
        *store.addInterval(task, IntervalState::running(at(900)), 0s, 0s).id(), *task.id());
    EXPECT_EQ(center->added.back().content.buttons.size(), 1) << "it had no length";
}

}  // namespace hearthmark::services
