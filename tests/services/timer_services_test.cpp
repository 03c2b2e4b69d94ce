// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "services/daily_backup_service.h"
#include "services/in_step_time_keeping_provider.h"
#include "services/interval_time_keeper_service.h"
#include "services/running_interval_visiting_service.h"
#include "store/store_backups.h"
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
    for (const double time : {1000, 1060}) {
        store.clock->time = at(time);
        timers->fire();
        EXPECT_EQ(interval.intervalState(), store::IntervalState::running(at(900), at(time)));
    }
    visitor.reset();
    store.clock->time = at(1100);
    timers->fire();
    EXPECT_EQ(interval.rawState()->visited(), at(1060)) << "its timer outlives it, for nothing";
    EXPECT_EQ(interval.intervalState(), store::IntervalState::finished());
}

TEST(DailyBackupService, BacksUpWhenTheDayChangesAndTellsOfAFailureOnceADay) {
    constexpr base::Seconds kDay = 24h;
    tests::TestStore store;
    store.addTask("a");
    store.clock->time = at(12345678);
    const auto backups = std::make_shared<store::StoreBackups>(
        store.directory.path, store.clock, std::make_shared<base::LocalCalendar>());
    const auto timers = std::make_shared<tests::FakeTimeKeepingProvider>();
    const auto center = std::make_shared<tests::FakeNotificationCenter>();
    auto service = std::make_shared<DailyBackupService>(backups, timers, center);
    const auto pass = [&](base::Seconds time, auto isOver) {
        store.clock->time = store.clock->time + time;
        for (int look = 0; look < 1000 && !isOver(); ++look) {
            timers->fire();
            std::this_thread::sleep_for(1ms);  // the backup is made on a thread of its own
        }
        EXPECT_TRUE(isOver());
    };
    service->start();
    timers->fire();
    EXPECT_TRUE(backups->all().empty()) << "the start has made that of today";
    pass(kDay, [&] { return backups->all().size() == 1; });
    pass(kDay, [&] { return backups->all().size() == 2; });
    service.reset();  // the backup is there before its end, which looks at the older ones
    service = std::make_shared<DailyBackupService>(backups, timers, center);
    service->start();
    timers->fire();
    std::filesystem::remove_all(store.directory.path / "Backups");
    std::ofstream(store.directory.path / "Backups") << "no folder";
    pass(kDay, [&] { return center->added.size() == 1; });
    EXPECT_EQ(center->added[0].content.title, "Hearthmark could not back up its data");
    int looks = 0;
    pass(base::Seconds(60), [&] { return ++looks > 200; });  // it is tried again each hour
    std::filesystem::remove(store.directory.path / "Backups");
    pass(base::Seconds(3600), [&] { return backups->all().size() == 1; });
    EXPECT_EQ(center->added.size(), 1);
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
    EXPECT_EQ(timers->timers.size(), 2) << "the first, alone, took the step of the second";
    add('m', 60s, [] {});
    EXPECT_EQ(timers->validTimers(), 2);
    timers->fire();
    EXPECT_EQ(std::exchange(fired, ""), "acm") << "one that goes or comes meanwhile does not fire";
    timers->fire();
    EXPECT_EQ(std::exchange(fired, ""), "mad");
    provider.setResting(true);
    EXPECT_EQ(timers->validTimers(), 0);
    another.setResting(false);
    EXPECT_EQ(std::exchange(fired, ""), "adm") << "at once, and once";
    another.setResting(false);
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
