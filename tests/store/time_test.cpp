// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "store/newest_first.h"
#include "store/time_texts.h"
#include "support/test_store.h"

namespace hearthmark::store {

using namespace std::chrono_literals;
using tests::at;

TEST(FormattedDuration, DropsLeadingZeroUnitsOnly) {
    std::string texts;
    for (const double seconds :
         {-0.0, 0.999, 5.0, 59.9999, 60.0, 65.0, 1500.0, 3599.0, 3600.0, 3605.0, 3725.0, 360000.0,
          1e15 - 1, 1e15, -0.001, HUGE_VAL, std::nan("")}) {
        texts += formattedDuration(base::Seconds(seconds)).value_or("nothing") + ' ';
    }
    EXPECT_EQ(texts,
              "0 0 5 59 1:00 1:05 25:00 59:59 1:00:00 1:00:05 1:02:05 100:00:00 277777777777:46:39 "
              "nothing nothing nothing nothing ");
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
