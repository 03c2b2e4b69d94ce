// SPDX-License-Identifier: MIT
#include "objectstore/managed_object_context.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <string>

#include "objectstore/store_error.h"
#include "support/test_store.h"

namespace hearthmark::objectstore {

using namespace std::chrono_literals;
using store::Interval;
using store::IntervalState;
using store::RawIntervalState;
using store::Task;
using tests::at;

class ManagedObjectContextTest : public testing::Test {
 protected:
    // Saves and tells the initials of the entities that this published.
    std::string save() {
        std::string published;
        const Subscription subscription =
            store.context().connectObserver([&published](const SavedChanges& changes) {
                published += changes.touches(Task::entity()) ? "T" : "";
                published += changes.touches(Interval::entity()) ? "I" : "";
                published += changes.touches(RawIntervalState::entity()) ? "R" : "";
            });
        store.context().save();
        return published;
    }

    tests::TestStore store;
    Task& task = store.addTask("a");
};

TEST_F(ManagedObjectContextTest, WritesOnlyTheColumnsThatDiffer) {
    store.addInterval(task, IntervalState::paused());
    store.reopen("UPDATE Interval SET duration = 'unreadable', creationDate = 'unreadable'");
    auto& interval = store.first<Interval>();
    interval.setMaxDuration(5s);
    interval.setDuration(interval.duration());
    store.context().save();
    EXPECT_EQ(store.sql("SELECT duration, creationDate, maxDuration, task FROM Interval"),
              "unreadable|unreadable|5.0|1");
}

TEST_F(ManagedObjectContextTest, PublishesAnEqualAssignmentWithoutWriting) {
    store.sql("CREATE TRIGGER t BEFORE UPDATE ON Task BEGIN SELECT RAISE(ABORT, 'written'); END");
    const auto before = store.context().objects<Task>();
    task.setName("a");
    EXPECT_EQ(save(), "T");
    EXPECT_EQ(store.context().objects<Task>().begin(), before.begin()) << "one set, not rebuilt";
    EXPECT_EQ(save(), "") << "nothing was touched";
    task.setName("b");
    EXPECT_THROW(save(), StoreError);
}

TEST_F(ManagedObjectContextTest, CurrentSetHoldsWhatTheStoreHoldsHoweverMuchComesAndGoes) {
    auto& context = store.context();
    std::mt19937 random(3);
    const auto before = context.objects<Task>();
    for (const unsigned keptOfTen : {10U, 3U, 0U, 7U}) {
        for (int count = 0; count < 1500; ++count) {
            context.insert<Task>();
        }
        context.save();
        for (Task& each : context.objects<Task>()) {
            if (random() % 10 >= keptOfTen) {
                context.remove(each);
            }
        }
        context.save();
        std::string keys;
        for (const Task& each : context.objects<Task>()) {
            keys += (keys.empty() ? "" : " ") + std::to_string(each.key());
            EXPECT_TRUE(context.objects<Task>().contains(each));
        }
        EXPECT_EQ(keys, store.sql("SELECT pk FROM Task ORDER BY pk"));
    }
    EXPECT_EQ(before.size(), 1U);
}

TEST_F(ManagedObjectContextTest, KeepsBothEndsOfARelationshipInStepAndPublishesBoth) {
    Task& other = store.addTask("b");
    Interval& interval = store.addInterval(task, IntervalState::paused());
    const RawIntervalState* replaced = interval.rawState();
    other.addIntervalsObject(interval);
    task.removeIntervalsObject(interval);  // not in that set any more
    EXPECT_TRUE(task.intervals().empty());
    EXPECT_EQ(other.intervals(), std::vector{&interval});
    EXPECT_EQ(save(), "TI");
    const auto raw = RawIntervalState::create(IntervalState::finished(), store.context());
    interval.setRawState(raw.get());
    EXPECT_EQ(interval.rawState(), raw.get());
    EXPECT_EQ(replaced->interval(), nullptr);
    EXPECT_EQ(save(), "IR");
    EXPECT_EQ(store.sql("SELECT task, r.pk, state FROM Interval, RawIntervalState r "
                        "WHERE r.interval = Interval.pk"),
              "2|2|2");
}

TEST_F(ManagedObjectContextTest, DeletesInCascadeAndLeavesWhatIsHeldReadable) {
    const auto interval = std::static_pointer_cast<Interval>(
        store.addInterval(task, IntervalState::paused(), 5s).shared_from_this());
    const store::Intervals before = store.context().objects<Interval>();
    Interval& other = store.addInterval(store.addTask("b"), IntervalState::paused());
    const auto unsaved = store.context().insert<Interval>();
    task.addIntervalsObject(*unsaved);
    store.context().remove(task);
    EXPECT_FALSE(interval->isManaged());
    EXPECT_EQ(interval->duration(), base::Seconds(5s));
    EXPECT_EQ(interval->task(), nullptr);
    EXPECT_EQ(interval->rawState(), nullptr);
    EXPECT_EQ(save(), "TIR");
    EXPECT_TRUE(before.contains(*interval)) << "a set that somebody holds never changes";
    EXPECT_EQ(store.context().objects<Interval>().size(), 1);
    EXPECT_TRUE(store.context().objects<Interval>().contains(other));
    EXPECT_EQ(store.sql("SELECT pk FROM Interval; SELECT pk FROM RawIntervalState"), "2 2");

    interval->setDuration(7s);
    interval->setTask(nullptr);
    store.context().remove(*interval);
    EXPECT_EQ(save(), "") << "changes of a deleted object reach no store";
}

TEST_F(ManagedObjectContextTest, MayEndBeforeTheHandlesOnItsObjects) {
    const auto held = std::static_pointer_cast<Task>(task.shared_from_this());
    const auto interval = std::static_pointer_cast<Interval>(
        store.addInterval(task, IntervalState::running(at(0))).shared_from_this());
    EXPECT_EQ(held->intervalSummary()->running.size(), 1U);
    const auto unsaved = store.context().insert<Interval>();
    task.addIntervalsObject(*unsaved);
    store.close();
    EXPECT_EQ(held->name(), "a");
    EXPECT_TRUE(held->intervals().empty());
    EXPECT_TRUE(held->intervalSummary()->running.empty());
    EXPECT_EQ(interval->task(), nullptr);
    EXPECT_EQ(unsaved->task(), nullptr);
    held->setName("b");
    held->addIntervalsObject(*interval);
    EXPECT_TRUE(held->intervals().empty());
}

TEST_F(ManagedObjectContextTest, FindsAFreeKeyWhereTheLastOneIsTaken) {
    store.reopen(
        "UPDATE Task SET pk = 2; INSERT INTO Task (pk) VALUES (9223372036854775807), (-5);"
        "INSERT INTO Interval VALUES (1, NULL, NULL, 0, 0, 3)");
    store.addTask("b");
    store.addTask("c");
    EXPECT_EQ(store.sql("SELECT pk, name FROM Task"),
              "-5|NULL 1|b 2|a 4|c 9223372036854775807|NULL")
        << "3 is that of a task that is gone, whose interval the new one must not take over";
    EXPECT_EQ(store.first<Task>().key(), -5);
}

TEST_F(ManagedObjectContextTest, LeavesNothingOfASaveThatFails) {
    Interval& interval = store.addInterval(task, IntervalState::paused());
    task.setName("b");
    interval.setDuration(base::Seconds(std::numeric_limits<double>::quiet_NaN()));
    try {
        save();
        FAIL() << "the column takes no NULL, which is what NaN becomes";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.code(), 19);
        EXPECT_EQ(error.statement(), R"(UPDATE "Interval" SET "duration" = ? WHERE pk = ?)");
    }
    EXPECT_EQ(store.sql("SELECT name FROM Task"), "a");
}

}  // namespace hearthmark::objectstore
