// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>

#include "store/newest_first.h"
#include "store/time_texts.h"
#include "support/test_store.h"

namespace hearthmark::store {

using namespace std::chrono_literals;
using tests::at;

TEST(FormattedDuration, DropsLeadingZeroUnitsOnly) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
    const auto rows = std::to_array<std::pair<double, std::optional<std::string>>>(
        {{-0.0, "0"},
         {0.999, "0"},
         {5, "5"},
         {59.9999, "59"},
         {60, "1:00"},
         {65, "1:05"},
         {1500, "25:00"},
         {3599, "59:59"},
         {3600, "1:00:00"},
         {3605, "1:00:05"},
         {3725, "1:02:05"},
         {360000, "100:00:00"},
         {-0.001, {}},
         {kInfinity, {}},
         {kNotANumber, {}},
         {1e15 - 1, "277777777777:46:39"},
         {1e15, {}}});
    for (const auto& [seconds, expected] : rows) {
        EXPECT_EQ(formattedDuration(base::Seconds(seconds)), expected) << seconds;
    }
}

TEST(FormattedTimeSpent, LeavesOutWhatHasNoText) {
    tests::TestStore store;
    Interval& interval =
        store.addInterval(store.addTask("a"), IntervalState::running(at(940)), 5s, 1500s);
    EXPECT_EQ(formattedTimeSpent(interval, *store.clock), "1:05/25:00");
    interval.setMaxDuration(-1s);
    EXPECT_EQ(formattedTimeSpent(interval, *store.clock), "1:05");
    interval.setDuration(-1000s);
    EXPECT_EQ(formattedTimeSpent(interval, *store.clock), std::nullopt);
}

TEST(TimeSpentOnATask, FollowsEveryChangeOfItsIntervals) {
    tests::TestStore store;
    Task& task = store.addTask("a");
    Task& other = store.addTask("b");
    const auto spent = [&] {
        return std::pair(timeSpent(task, *store.clock) / 1s, timeSpent(other, *store.clock) / 1s);
    };
    using Spent = std::pair<double, double>;
    EXPECT_EQ(spent(), Spent(0, 0));
    Interval& settled = store.addInterval(task, IntervalState::finished(), 5s);
    Interval& running = store.addInterval(task, IntervalState::running(at(940)), 1s);
    EXPECT_EQ(spent(), Spent(66, 0));
    settled.setDuration(6s);
    EXPECT_EQ(spent(), Spent(67, 0));
    running.rawState()->close();
    EXPECT_EQ(spent(), Spent(7, 0));
    other.addIntervalsObject(settled);
    EXPECT_EQ(spent(), Spent(1, 6));
    settled.setRawState(
        RawIntervalState::create(IntervalState::running(at(990)), store.context()).get());
    EXPECT_EQ(spent(), Spent(1, 16));
    other.removeIntervalsObject(settled);
    store.context().remove(running);
    EXPECT_EQ(spent(), Spent(0, 0));
}

TEST(NewestFirst, OrdersEveryPermutationAlike) {
    tests::TestStore store;
    std::vector<Task*> tasks;
    for (const std::optional<double> seconds : {std::optional(5.0), {}, {7}, {5}, {}, {-1}}) {
        tasks.push_back(&store.addTask("a"));
        tasks.back()->setCreationDate(seconds ? std::optional(at(*seconds)) : std::nullopt);
    }
    const std::vector<Task*> expected = {tasks[4], tasks[1], tasks[2],
                                         tasks[3], tasks[0], tasks[5]};
    std::ranges::sort(tasks);
    do {
        std::vector<Task*> sorted = tasks;
        sortNewestFirst(sorted);
        ASSERT_EQ(sorted, expected);
    } while (std::ranges::next_permutation(tasks).found);
}

}  // namespace hearthmark::store
