// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "services/in_step_time_keeping_provider.h"
#include "services/interval_time_keeper_service.h"
#include "services/running_interval_visiting_service.h"
#include "support/test_store.h"

namespace hearthmark::services {

using namespace std::chrono_literals;
using tests::at;

TEST(TimerServices, FinishOnceASecondAndStampOnceAMinuteWhileTheyLive) {
    tests::TestStore store;
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    const store::Interval& interval =
        store.addInterval(store.addTask("a"), store::IntervalState::running(at(900)), 0s, 200s);
    const auto keeper = std::make_shared<IntervalTimeKeeperService>(store.service, timers);
    auto visitor =
        std::make_shared<RunningIntervalVisitingService>(store.service, timers, store.clock);
    keeper->start();
    visitor->start();
    EXPECT_EQ(timers->timers.at(0)->interval, base::Seconds(1s));
    EXPECT_EQ(timers->timers.at(1)->interval, base::Seconds(60s));
    timers->fire();
    EXPECT_EQ(interval.intervalState(), store::IntervalState::running(at(900), at(1000)));
    visitor.reset();
    store.clock->time = at(1100);
    timers->fire();
    EXPECT_EQ(interval.rawState()->visited(), at(1000)) << "its timer outlives it, for nothing";
    EXPECT_EQ(interval.intervalState(), store::IntervalState::finished());
}

TEST(InStepTimeKeepingProvider, FiresAllOfOneIntervalTogetherWhateverTheyDo) {
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    InStepTimeKeepingProvider provider(timers);
    InStepTimeKeepingProvider another(provider);
    std::string fired;
    std::map<char, std::shared_ptr<TimeKeeping>> handles;
    const auto add = [&](char name, base::Seconds interval, const std::function<void()>& then) {
        std::swap(provider, another);
        handles[name] = provider.makeTimer(interval, Repeats::yes, [&fired, name, then] {
            fired += name;
            then();
        });
    };
    add('a', 1s, [&] { handles['b']->invalidate(); });
    add('b', 1s, [] {});
    add('c', 1s, [&] {
        handles['c']->invalidate();
        add('d', 1s, [] {});
    });
    add('m', 60s, [] {});
    EXPECT_EQ(timers->validTimers(), 2);
    timers->fire();
    EXPECT_EQ(std::exchange(fired, ""), "acm") << "one that goes or comes meanwhile does not fire";
    timers->fire();
    EXPECT_EQ(std::exchange(fired, ""), "adm");
    for (auto& [name, handle] : handles) {
        handle->invalidate();
        handle->invalidate();
    }
    EXPECT_EQ(timers->validTimers(), 0);
    add('e', 1s, [] {});
    timers->fire();
    EXPECT_EQ(fired, "e");
    handles['e']->invalidate();
    timers->timers.clear();  // they hold what holds them
}

}  // namespace hearthmark::services
