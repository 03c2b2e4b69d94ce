// SPDX-License-Identifier: MIT
#include "services/sleep_service.h"

#include <gtest/gtest.h>

#include "services/awake_time_keeping_provider.h"
#include "support/test_store.h"

namespace hearthmark::services {

using namespace std::chrono_literals;
using tests::at;

struct FakeSleepMonitor final : SleepMonitor {
    void start(Handlers given) override { handlers = std::move(given); }

    Handlers handlers;
};

TEST(SleepService, TakesOutTheTimeAsleepOnceWhoeverTellsOfIt) {
    enum class Told { nothing, both, beginning, afterwards };
    struct Row {
        Told told;
        double awakeBefore;
        double asleep;
        double awakeAfter;
        double spent;
    };
    for (const Row& row :
         {Row{Told::nothing, 10, 3600, 1, 11}, Row{Told::nothing, 10, 0.5, 1, 11.5},
          Row{Told::both, 10, 3600, 1, 11}, Row{Told::afterwards, 10, 3600, 1, 11},
          // It has slept, or never did, and nobody says so.
          Row{Told::beginning, 10, 3600, 61, 71}, Row{Told::beginning, 10, 0, 61, 71}}) {
        tests::TestStore store;
        const auto clock = std::make_shared<AwakeClock>(store.clock);
        const auto monitor = std::make_shared<FakeSleepMonitor>();
        Uptime uptime{.awake = 50s, .asleep = 900s};
        const auto sleep = std::make_shared<SleepService>(store.service, monitor, clock,
                                                          [&uptime] { return uptime; });
        sleep->start();
        const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
        double seen = 0;
        const store::Interval& interval = store.addInterval(
            store.addTask("a"), store::IntervalState::running(at(1000)), 0s, 7200s);
        AwakeTimeKeepingProvider(timers, sleep).makeTimer(1s, Repeats::yes, [&] {
            seen = interval.totalDuration(clock->now()).count();
        });
        const auto pass = [&](double awake, double asleep) {
            uptime.awake += base::Seconds(awake);
            uptime.asleep += base::Seconds(asleep);
            store.clock->time = store.clock->time + base::Seconds(awake + asleep);
        };
        pass(row.awakeBefore, 0);
        if (row.told == Told::both || row.told == Told::beginning) {
            monitor->handlers.willSleep();
        }
        pass(0, row.asleep);
        if (row.told == Told::afterwards) {
            monitor->handlers.willSleep();
            monitor->handlers.didWake();
        }
        timers->fire();
        EXPECT_LT(seen, 20) << "the night, before anybody has heard of the waking";
        if (row.told == Told::both) {
            monitor->handlers.didWake();
        }
        pass(row.awakeAfter, 0);
        timers->fire();
        timers->fire();
        EXPECT_DOUBLE_EQ(seen, row.spent);
    }
}

}  // namespace hearthmark::services
