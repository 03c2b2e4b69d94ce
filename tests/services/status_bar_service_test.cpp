// SPDX-License-Identifier: MIT
#include "services/status_bar_service.h"

#include <gtest/gtest.h>

#include "support/test_store.h"

namespace hearthmark::services {

using store::IntervalState;
using namespace std::chrono_literals;
using tests::at;

namespace {

struct StatusBarServiceTest : testing::Test {
    StatusBarServiceTest() {
        provider->startObserving();
        service = std::make_shared<StatusBarService>(
            nullptr, provider, timers, store.clock,
            std::make_unique<StatusMenuService>(quickFocus, *store.liveData),
            StatusBarService::Ports{.statusBar = bar, .applicationWindows = nullptr});
        service->setUp();
    }

    // A second later.
    const std::string& tick() {
        store.clock->time = store.clock->time + 1s;
        timers->fire();
        return bar->title;
    }
    store::Interval& run(base::Date created, base::Seconds maximum = 1800s) {
        return store.addInterval(task, IntervalState::running(store.clock->time), 60s, maximum,
                                 created);
    }
    tests::TestStore store;
    store::Task& task = store.addTask("Letters");
    std::shared_ptr<tests::FakeTimeKeepingProvider> timers =
        std::make_shared<tests::FakeTimeKeepingProvider>();
    std::shared_ptr<StatusBarService::IntervalsProvider> provider =
        std::make_shared<StatusBarService::IntervalsProvider>(
            store.container, store::Interval::fetchRequest().sortDescriptor);
    tests::FakeNotificationCenter center;
    std::shared_ptr<QuickFocus> quickFocus =
        std::make_shared<QuickFocus>(store.service, *store.liveData, store.clock, [this] {
            return std::shared_ptr<UserNotificationCenter>(std::shared_ptr<void>(), &center);
        });
    std::shared_ptr<tests::FakeStatusBar> bar = std::make_shared<tests::FakeStatusBar>();
    std::shared_ptr<StatusBarService> service;
};

}  // namespace

TEST_F(StatusBarServiceTest, ShowsTheLatestRunningIntervalFromOneSecondAfterItsStart) {
    EXPECT_EQ(bar->title, "Hearthmark!");
    run(at(300));
    EXPECT_EQ(bar->title, "Hearthmark!") << "changed by the tick alone";
    EXPECT_EQ(tick(), "1:01/30:00");
    EXPECT_EQ(bar->progress,
              (StatusItemProgress{.taskName = "Letters", .spent = 61s, .maximum = 1800s}));
    const store::Interval& newer = run(at(400), 3600s);
    store::Interval& between = run(at(350));
    EXPECT_EQ(timers->validTimers(), 1);
    EXPECT_EQ(tick(), "1:01/1:00:00");
    store.service->finishInterval(*newer.id(), *task.id());
    EXPECT_EQ(tick(), "1:02/30:00") << "of those that are left the latest";
    store.service->deleteInterval(*between.id(), *task.id());
    EXPECT_EQ(tick(), "1:03/30:00") << "also where it has no task any more";
    const auto made = timers->timers.size();
    store.addTask("Report");
    EXPECT_EQ(timers->timers.size(), made) << "the same interval keeps its timer";
    between.setDuration(base::Seconds(-100));
    EXPECT_EQ(tick(), "-");
    store.service->pauseRunningIntervals();
    EXPECT_EQ(bar->title, "Hearthmark!");
    EXPECT_EQ(bar->progress, std::nullopt);
    EXPECT_EQ(timers->validTimers(), 0);
}

// It is still remembered as the latest, so no timer is started for it again.
TEST_F(StatusBarServiceTest, StaysIdleForTheSameIntervalAfterAnEmptySet) {
    store::Interval& interval = run(at(300));
    EXPECT_EQ(tick(), "1:01/30:00");
    store.service->pauseRunningIntervals();
    interval.rawState()->run(at(1001));
    interval.setDuration(base::Seconds(60));
    store.context().save();
    EXPECT_EQ(tick(), "Hearthmark!");
    run(at(301));
    EXPECT_EQ(tick(), "1:01/30:00");
}

TEST_F(StatusBarServiceTest, OffersWhatCanBeDoneAtOnce) {
    const auto menu = [this] {
        std::string texts;
        for (const StatusMenuEntry& entry : bar->entries()) {
            texts += entry.text + (entry.taskName.empty() ? "" : " " + entry.taskName) + "; ";
        }
        return texts;
    };
    EXPECT_EQ(menu(), "") << "nothing was ever done";
    const auto work = [this](store::Task& on, base::Seconds spent, base::Seconds maximum,
                             base::Date created) {
        store.addInterval(on, IntervalState::finished(), spent, maximum, created);
    };
    const std::string letters = "Start 30:00 Letters; Start 1:00:00 Letters; ";
    struct Case {
        base::Seconds spent;
        base::Seconds maximum;
        std::string goOn;
    };
    double created = 300;
    for (const auto& [spent, maximum, goOn] :
         {Case{720s, 1800s, "Continue 18:00 Letters; "},
          Case{1.9s, 1800.5s, "Continue 29:59 Letters; "},
          Case{1799s, 1800s, "Continue 1 Letters; "}, Case{1799.5s, 1800s, ""},
          Case{1800s, 1800s, ""}, Case{5s, 0s, ""}, Case{-5s, 1800s, ""}}) {
        work(task, spent, maximum, at(created++));
        EXPECT_EQ(menu(), goOn + letters);
    }
    for (const char* name : {"b", "c", "d"}) {
        work(store.addTask(name), 1800s, 1800s, at(name[0] == 'b' ? 250 : created++));
    }
    EXPECT_EQ(menu(), "Start 30:00 d; Start 1:00:00 d; Start 30:00 c; Start 1:00:00 c; " + letters);
    store.service->markTaskDone(*task.id());
    EXPECT_EQ(menu().find("Letters"), std::string::npos) << "is done";
    const auto changes = bar->menuChanges;
    bar->entries().front().choose();
    EXPECT_GT(bar->menuChanges, changes);
    EXPECT_EQ(menu(), "Finish; ");
    const auto offered = bar->menuChanges;
    tick();
    EXPECT_EQ(bar->menuChanges, offered) << "time alone changes nothing of it";
    EXPECT_TRUE(center.added.empty());
    quickFocus->start(*task.id(), 1800s);
    quickFocus->start(base::Uuid::random(), 1800s);
    store.clock->time = store.clock->time + 1s;
    bar->entries().front().choose();
    EXPECT_EQ(menu().substr(0, 18), "Continue 29:58 d; ");
    ASSERT_EQ(center.added.size(), 2) << "both were refused";
    EXPECT_EQ(center.added[0].content.body, "A focus is running already.");
    EXPECT_EQ(center.added[1].content.body, "The task is gone.");
    EXPECT_EQ(store.sql("SELECT COUNT(*) FROM Interval"), "11");
}

}  // namespace hearthmark::services
