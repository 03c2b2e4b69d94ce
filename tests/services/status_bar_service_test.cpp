// SPDX-License-Identifier: MIT
#include "services/status_bar_service.h"

#include <gtest/gtest.h>

#include "store/raw_interval_state.h"
#include "support/test_store.h"

namespace hearthmark::services {

using store::IntervalState;
using namespace std::chrono_literals;
using tests::at;

namespace {

struct FakeStatusBar final : StatusBar, StatusItemButton {
    struct Item final : StatusItem {
        StatusItemButton* button() override { return shown; }

        StatusItemButton* shown = nullptr;
    };

    std::unique_ptr<StatusItem> makeStatusItem(double /*length*/) override {
        auto item = std::make_unique<Item>();
        item->shown = hasButton ? this : nullptr;
        return item;
    }
    void setTitle(const std::string& newTitle) override { title = newTitle; }
    void setProgress(const std::optional<StatusItemProgress>& newProgress) override {
        progress = newProgress;
    }
    void setAction(std::function<void()> newAction) override { action = std::move(newAction); }

    bool hasButton = true;
    std::string title;
    std::optional<StatusItemProgress> progress;
    std::function<void()> action;
};

// Two, and in which order what is asked of them.
struct FakeWindows final : ApplicationWindows {
    struct Window final : ApplicationWindow {
        void orderFrontRegardless() override { *told += "front "; }
        void makeKeyWindow() override { *told += "key "; }

        std::string* told = nullptr;
    };

    std::vector<std::shared_ptr<ApplicationWindow>> windows() const override {
        const auto window = std::make_shared<Window>();
        window->told = &told;
        return {window, window};
    }

    mutable std::string told;
};

struct StatusBarServiceTest : testing::Test {
    StatusBarServiceTest() {
        provider->startObserving();
        service = std::make_shared<StatusBarService>(
            nullptr, provider, timers, store.clock,
            StatusBarService::Ports{.statusBar = bar, .applicationWindows = windows});
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
    void finish(const store::Interval& interval) const {
        store.service->finishInterval(*interval.id(), *task.id());
    }

    tests::TestStore store;
    store::Task& task = store.addTask("Letters");
    std::shared_ptr<tests::FakeTimeKeepingProvider> timers =
        std::make_shared<tests::FakeTimeKeepingProvider>();
    std::shared_ptr<StatusBarService::IntervalsProvider> provider =
        std::make_shared<StatusBarService::IntervalsProvider>(
            store.container, store::Interval::fetchRequest().sortDescriptor);
    std::shared_ptr<FakeStatusBar> bar = std::make_shared<FakeStatusBar>();
    std::shared_ptr<FakeWindows> windows = std::make_shared<FakeWindows>();
    std::shared_ptr<StatusBarService> service;
};

}  // namespace

TEST_F(StatusBarServiceTest, ShowsTheLatestRunningIntervalFromOneSecondAfterItsStart) {
    service->setUp();
    EXPECT_EQ(bar->title, "Hearthmark!");
    const store::Interval& older = run(at(300));
    EXPECT_EQ(bar->title, "Hearthmark!") << "changed by the tick alone";
    EXPECT_EQ(tick(), "1:01/30:00");
    EXPECT_EQ(bar->progress,
              (StatusItemProgress{.taskName = "Letters", .spent = 61s, .maximum = 1800s}));
    const store::Interval& newer = run(at(400), 3600s);
    run(at(350));
    EXPECT_EQ(timers->validTimers(), 1);
    EXPECT_EQ(tick(), "1:01/1:00:00");
    finish(newer);
    EXPECT_EQ(tick(), "1:02/30:00") << "of those that are left the latest";
    store.service->deleteInterval(*older.id(), *task.id());
    const auto made = timers->timers.size();
    store.addTask("Report");
    EXPECT_EQ(timers->timers.size(), made) << "the same interval keeps its timer";
    store.service->pauseRunningIntervals();
    EXPECT_EQ(bar->title, "Hearthmark!");
    EXPECT_EQ(bar->progress, std::nullopt);
    EXPECT_EQ(timers->validTimers(), 0);
}

TEST_F(StatusBarServiceTest, ShowsWhatRunsAtItsStartAndWhatHasNoTaskOrText) {
    store::Interval& interval = run(at(300));
    service->setUp();
    store.service->deleteInterval(*interval.id(), *task.id());
    EXPECT_EQ(tick(), "1:01/30:00");
    interval.setDuration(base::Seconds(-100));
    EXPECT_EQ(tick(), "-");
}

// It is still remembered as the latest, so no timer is started; that is wanted.
TEST_F(StatusBarServiceTest, StaysIdleForTheSameIntervalAfterAnEmptySet) {
    service->setUp();
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

TEST_F(StatusBarServiceTest, BringsEveryWindowToTheFrontInOrder) {
    service->setUp();
    bar->action();
    EXPECT_EQ(windows->told, "front key front key ");
}

TEST_F(StatusBarServiceTest, GoesOnWhereTheDesktopHasNoPlaceForAnItem) {
    bar->hasButton = false;
    service->setUp();
    run(at(300));
    EXPECT_EQ(tick(), "");
    EXPECT_EQ(timers->timers.size(), 0);
}

}  // namespace hearthmark::services
