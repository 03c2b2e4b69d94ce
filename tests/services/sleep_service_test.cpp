// SPDX-License-Identifier: MIT
#include "services/sleep_service.h"

#include <gtest/gtest.h>

#include "services/awake_time_keeping_provider.h"
#include "services/interval_time_keeper_service.h"
#include "services/running_interval_visiting_service.h"
#include "support/test_store.h"

namespace hearthmark::services {

using store::IntervalState;
using namespace std::chrono_literals;
using tests::at;

namespace {

struct FakeSleepMonitor final : SleepMonitor {
    void start(Handlers newHandlers) override { handlers = std::move(newHandlers); }
    Handlers handlers;
};

}  // namespace

TEST(SleepService, KeepsTheNightOutOfWhatRunsAlsoWhereTicksComeBeforeTheWaking) {
    tests::TestStore store;
    const auto clock = std::make_shared<AwakeClock>(store.clock);
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    const auto awakeTimers = std::make_shared<AwakeTimeKeepingProvider>(timers, clock);
    const auto operations = std::make_shared<store::DataOperationsService>(
        *store.liveData, store.container, clock, base::FatalErrorHandler());
    const auto keeper = std::make_shared<IntervalTimeKeeperService>(operations, awakeTimers);
    const auto visitor =
        std::make_shared<RunningIntervalVisitingService>(operations, awakeTimers, clock);
    const auto monitor = std::make_shared<FakeSleepMonitor>();
    const auto sleep = std::make_shared<SleepService>(operations, monitor, clock);
    keeper->start();
    visitor->start();
    sleep->start();
    store::Task& task = store.addTask("a");
    const store::Interval& interval =
        store.addInterval(task, IntervalState::running(at(900)), 5s, 200s);
    const store::Interval& ended =
        store.addInterval(task, IntervalState::running(at(900)), 5s, 200s);

    monitor->handlers.didWake();
    EXPECT_EQ(interval.intervalState(), IntervalState::running(at(900))) << "it did not sleep";
    monitor->handlers.willSleep();
    const IntervalState stamped = IntervalState::running(at(900), at(1000));
    EXPECT_EQ(interval.intervalState(), stamped);
    store.clock->time = at(40000);
    timers->fire();
    monitor->handlers.willSleep();
    timers->fire();
    EXPECT_EQ(interval.intervalState(), stamped);
    // By a hand that is faster than the signal.
    operations->finishInterval(*ended.id(), *task.id());
    EXPECT_EQ(ended.duration(), 105s);

    int saves = 0;
    const boost::signals2::scoped_connection connection =
        store.context().connectObserver([&saves](const auto&) { ++saves; });
    monitor->handlers.didWake();
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(interval.intervalState(), IntervalState::running(at(40000), at(1000)));
    EXPECT_EQ(interval.duration(), 105s);
    store.clock->time = at(40095);
    timers->fire();
    EXPECT_EQ(interval.intervalState(), IntervalState::finished());
    EXPECT_EQ(interval.duration(), 200s);
}

}  // namespace hearthmark::services
