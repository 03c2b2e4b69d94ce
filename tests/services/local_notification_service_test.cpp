// SPDX-License-Identifier: MIT
#include "services/local_notification_service.h"

#include <gtest/gtest.h>

#include "store/raw_interval_state.h"
#include "support/test_store.h"

namespace hearthmark::services {

using store::IntervalState;
using namespace std::chrono_literals;
using tests::at;

namespace {

struct FakeNotificationCenter final : UserNotificationCenter {
    void setDelegate(UserNotificationCenterDelegate& /*delegate*/) override {}
    void requestAuthorization(AuthorizationOptions options,
                              std::function<void(bool)> completion) override {
        EXPECT_EQ(static_cast<int>(options), 6);
        completion(isGranted);
    }
    void add(const NotificationRequest& request) override { added.push_back(request); }

    bool isGranted = true;
    std::vector<NotificationRequest> added;
};

struct LocalNotificationServiceTest : testing::Test {
    void startObserving() { service->startObserving(); }
    store::Interval& addInterval(const IntervalState& state) {
        return store.addInterval(task, state, 0s, 200s);
    }
    void finishDue(base::Date now) {
        store.clock->time = now;
        store.service->finishDueIntervals();
    }

    tests::TestStore store;
    store::Task& task = store.addTask("<b>Letters & \"notes\"");
    std::shared_ptr<FakeNotificationCenter> center = std::make_shared<FakeNotificationCenter>();
    std::shared_ptr<LocalNotificationService> service = std::make_shared<LocalNotificationService>(
        store.liveData, [this] { return center; },
        base::FatalErrorHandler([](std::string_view message) -> void {
            std::cerr << message << std::endl;
            std::abort();
        }));
};

}  // namespace

TEST_F(LocalNotificationServiceTest, PostsOnceForEachIntervalThatFinished) {
    addInterval(IntervalState::finished());
    addInterval(IntervalState::running(at(900)));
    addInterval(IntervalState::running(at(900)));
    startObserving();
    EXPECT_TRUE(center->added.empty()) << "what had finished before is not news";
    finishDue(at(1099));
    EXPECT_TRUE(center->added.empty());
    finishDue(at(1100));
    ASSERT_EQ(center->added.size(), 2);
    EXPECT_NE(center->added[0].identifier, center->added[1].identifier);
    for (const NotificationRequest& request : center->added) {
        EXPECT_EQ(request.delay, 1s);
        EXPECT_EQ(request.content, (NotificationContent{.title = "<b>Letters & \"notes\"",
                                                        .body = "Interval finished",
                                                        .sound = NotificationSound::standard,
                                                        .taskId = task.id()}));
    }
    finishDue(at(1101));
    EXPECT_EQ(center->added.size(), 2) << "once each";
}

TEST_F(LocalNotificationServiceTest, PostsNothingForWhatDidNotFinishOrHasNoTask) {
    startObserving();
    addInterval(IntervalState::running(at(900)));
    store.service->pauseRunningIntervals();
    store.service->resumePausedIntervals();
    const store::Interval& taken = addInterval(IntervalState::running(at(900)));
    store.service->deleteInterval(*taken.id(), *task.id());
    store.service->deleteTask(*task.id());
    finishDue(at(9000));
    EXPECT_EQ(taken.intervalState(), IntervalState::finished());
    EXPECT_TRUE(center->added.empty());
}

TEST_F(LocalNotificationServiceTest, NamesATaskWithoutANameAndAsksEachTime) {
    startObserving();
    task.setName(std::nullopt);
    for (const bool isGranted : {true, false}) {
        center->isGranted = isGranted;
        const store::Interval& interval = addInterval(IntervalState::running(at(900)));
        store.service->finishInterval(*interval.id(), *task.id());
    }
    ASSERT_EQ(center->added.size(), 1);
    EXPECT_EQ(center->added[0].content.title, "-");
}

TEST_F(LocalNotificationServiceTest, RefusesToStartTwice) {
    startObserving();
    EXPECT_DEATH(startObserving(), "started twice");
}

}  // namespace hearthmark::services
