// SPDX-License-Identifier: MIT
#include "store/data_operations_service.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "support/test_store.h"

namespace hearthmark::store {

using namespace std::chrono_literals;
using tests::at;

class DataOperationsServiceTest : public testing::Test {
 protected:
    // Counts the saves that touch anything from here on.
    void countSaves() {
        subscription = store.context().connectObserver([this](const auto&) { ++saves; });
    }
    Interval& addIntervalWithoutTask(base::Date started) {
        Interval& interval = store.addInterval(task, IntervalState::running(started), 0s, 5s);
        store.service->deleteInterval(*interval.id(), *task.id());
        return interval;
    }
    // State, start, stamp and duration of each interval.
    std::string states() const {
        return store.sql(
            "SELECT state, started, visited, duration FROM Interval JOIN RawIntervalState r "
            "ON r.interval = Interval.pk ORDER BY Interval.pk");
    }

    tests::TestStore store;
    Task& task = store.addTask("first");
    const base::Uuid id = base::Uuid::random();
    int saves = 0;
    objectstore::Subscription subscription;
};

TEST_F(DataOperationsServiceTest, KeepsTheTimeOfEachIntervalThroughALifeOfTheProgram) {
    const base::Uuid taskId = *task.id();
    store.service->addInterval({at(990), 0s, id, 1800s, IntervalState::running(at(991))}, taskId);
    EXPECT_EQ(store.sql("SELECT id, creationDate, maxDuration, task FROM Interval"),
              id.text() + "|990.0|1800.0|1");
    store.addInterval(task, IntervalState::running(at(993), at(995)), 5s);
    addIntervalWithoutTask(at(980));
    store.addInterval(task, IntervalState::paused(), 7s);
    struct Row {
        double now;
        std::function<void(DataOperationsService&)> act;
        const char* states;
    };
    for (const auto& [now, act, expected] : std::vector<Row>{
             {1000, [](auto& service) { service.markRunningIntervalsVisited(at(998)); },
              "1|991.0|998.0|0.0 1|993.0|998.0|5.0 1|980.0|998.0|0.0 0|NULL|NULL|7.0"},
             {1500, [](auto& service) { service.excludeTime(at(1000), at(1500)); },
              "1|1500.0|998.0|9.0 1|1500.0|998.0|12.0 1|1500.0|998.0|20.0 0|NULL|NULL|7.0"},
             {1510, [](auto& service) { service.pauseRunningIntervals(); },
              "0|NULL|998.0|19.0 0|NULL|998.0|22.0 0|NULL|998.0|30.0 0|NULL|NULL|7.0"},
             {2000, [](auto& service) { service.resumePausedIntervals(); },
              "1|2000.0|998.0|19.0 1|2000.0|998.0|22.0 0|NULL|998.0|30.0 1|2000.0|NULL|7.0"},
             {2004, [&](auto& service) { service.finishInterval(id, taskId); },
              "2|NULL|998.0|23.0 1|2000.0|998.0|22.0 0|NULL|998.0|30.0 1|2000.0|NULL|7.0"}}) {
        store.clock->time = at(now);
        act(*store.service);
        EXPECT_EQ(states(), expected) << now;
    }
    // After a kill: a stamp that lies before the start adds nothing.
    store.service->markRunningIntervalsVisited(at(2003));
    store.addInterval(task, IntervalState::running(at(2004), at(1990)), 8s);
    store.addInterval(task, IntervalState::running(at(2004)), 9s);
    addIntervalWithoutTask(at(2004));
    store.reopen();
    store.service->finishIntervalsLeftRunning();
    EXPECT_EQ(states(),
              "2|NULL|998.0|23.0 2|NULL|2003.0|25.0 0|NULL|998.0|30.0 2|NULL|2003.0|10.0 "
              "2|NULL|1990.0|8.0 2|NULL|NULL|9.0 1|2004.0|NULL|0.0");
}

TEST_F(DataOperationsServiceTest, BringsBackWhatWasDeletedAsItWas) {
    const auto everything = [this] {
        return store.sql(
            "SELECT * FROM (SELECT id, creationDate, name, doneDate FROM Task ORDER BY id);"
            "SELECT i.id, i.creationDate, duration, maxDuration, state, started, visited, t.name "
            "FROM Interval i JOIN RawIntervalState r ON r.interval = i.pk "
            "LEFT JOIN Task t ON t.pk = i.task ORDER BY i.id;"
            "SELECT n.id, n.creationDate, text, t.name FROM Note n "
            "LEFT JOIN Task t ON t.pk = n.task ORDER BY n.id");
    };
    const Interval& running =
        store.addInterval(task, IntervalState::running(at(900), at(960)), 5s, 3600s);
    store.addInterval(task, IntervalState::finished(), 7s);
    Interval& strange = store.addInterval(task, IntervalState::paused());
    strange.rawState()->setState(std::int16_t{77});
    strange.setId(std::nullopt);
    store.context().save();
    store.service->addNote({at(5), id, "text"}, *task.id());
    const base::Uuid taskId = *task.id();
    const base::Uuid runningId = *running.id();
    const std::string before = everything();
    countSaves();
    const auto deleteNote = [&] { store.service->deleteNote(id, taskId); };
    const auto deleteInterval = [&] { store.service->deleteInterval(runningId, taskId); };
    const auto deleteTask = [&] { store.service->deleteTask(taskId); };
    const auto undo = [this] { store.service->undo(*store.service->latestChange().value()); };
    const std::vector<std::function<void()>> deletions{deleteNote, deleteInterval, deleteTask,
                                                       deleteNote, deleteInterval};
    for (const auto& deletion : deletions) {
        deletion();
        EXPECT_NE(everything(), before);
        saves = 0;
        undo();
        EXPECT_EQ(saves, 1);
        EXPECT_EQ(everything(), before);
    }
    // What runs is found by the index again, and what was taken out comes back as it now is.
    deleteInterval();
    store.service->markRunningIntervalsVisited(at(990));
    undo();
    EXPECT_EQ(store.sql("SELECT count(*) FROM Interval JOIN RawIntervalState r "
                        "ON r.interval = Interval.pk WHERE task AND visited = 990"),
              "1");
    // The task is gone for good.
    deleteInterval();
    const auto deletion = store.service->latestChange().value();
    deleteTask();
    store.service->undo(*deletion);
    EXPECT_EQ(store.sql("SELECT count(*) FROM Task"), "0");
}

TEST_F(DataOperationsServiceTest, BringsBackFinishedWhatRanWhenItWasDeletedLongAgo) {
    const Interval& running =
        store.addInterval(task, IntervalState::running(at(900), at(960)), 5s, 3600s);
    const base::Uuid intervalId = *running.id();
    const base::Uuid taskId = *task.id();
    double now = 1000;
    for (const auto& [seconds, expected] : std::vector<std::pair<double, std::string>>{
             {10, "1|900.0|5.0"}, {10.5, "2|NULL|105.0"}, {-1, "2|NULL|105.0"}}) {
        for (const bool isWhole : {false, true}) {
            SCOPED_TRACE(seconds);
            store.sql(
                "UPDATE Interval SET duration = 5; UPDATE RawIntervalState SET state = 1, "
                "started = 900");
            store.reopen();
            store.clock->time = at(now = 1000);
            isWhole ? store.service->deleteTask(taskId)
                    : store.service->deleteInterval(intervalId, taskId);
            store.clock->time = at(now + seconds);
            store.service->undo(*store.service->latestChange().value());
            EXPECT_EQ(store.sql("SELECT state, started, duration FROM Interval JOIN "
                                "RawIntervalState r ON r.interval = Interval.pk WHERE task"),
                      expected);
        }
    }
}

TEST_F(DataOperationsServiceTest, CorrectsWhatItIsToldToAndTakesThatBack) {
    const base::Uuid taskId = *task.id();
    const base::Uuid other = *store.addTask("other").id();
    // Created at 200, and by now, 1000, 150 seconds are spent on it.
    const base::Uuid running = *store.addInterval(task, IntervalState::running(at(950)), 100s).id();
    const base::Uuid finished = *store.addInterval(task, IntervalState::finished(), 60s, 90s).id();
    store.service->addNote({at(5), id, "text"}, taskId);
    const auto everything = [this] {
        return store.sql(
            "SELECT name FROM Task ORDER BY pk;"
            "SELECT i.creationDate, started, duration, maxDuration, task FROM Interval i "
            "JOIN RawIntervalState r ON r.interval = i.pk ORDER BY i.pk;"
            "SELECT text, task FROM Note");
    };
    const std::string before = everything();
    ASSERT_EQ(before, "first other 200.0|950.0|100.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1");
    const auto correct = [&](const base::Uuid& interval, const IntervalCorrection& correction) {
        store.service->correctInterval(interval, taskId, correction);
    };
    struct Row {
        std::function<void()> change;
        const char* expected;
    };
    for (const auto& [change, expected] : std::vector<Row>{
             {[&] { correct(running, {.creationDate = at(100)}); },
              "first other 100.0|950.0|200.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] { correct(running, {.creationDate = at(260)}); },
              "first other 260.0|950.0|40.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] { correct(running, {.creationDate = at(330)}); },
              "first other 330.0|980.0|0.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] { correct(running, {.creationDate = at(900)}); },
              "first other 900.0|1000.0|0.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] { correct(running, {.creationDate = at(100), .timeSpent = 70s}); },
              "first other 100.0|950.0|20.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] {
                  correct(finished, {.creationDate = at(7), .timeSpent = 70s, .taskId = other});
              },
              "first other 200.0|950.0|100.0|1800.0|1 7.0|NULL|70.0|90.0|2 text|1"},
             {[&] { correct(finished, {.maxDuration = 0s}); },
              "first other 200.0|950.0|100.0|1800.0|1 200.0|NULL|60.0|0.0|1 text|1"},
             {[&] { store.service->extendInterval(running, taskId, 300s); },
              "first other 200.0|950.0|100.0|2100.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] { store.service->renameTask(taskId, "new"); },
              "new other 200.0|950.0|100.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1"},
             {[&] { store.service->editNote(id, taskId, "new"); },
              "first other 200.0|950.0|100.0|1800.0|1 200.0|NULL|60.0|90.0|1 new|1"},
             {[&] { store.service->moveNote(id, taskId, other); },
              "first other 200.0|950.0|100.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|2"}}) {
        countSaves();
        saves = 0;
        change();
        EXPECT_EQ(saves, 1);
        EXPECT_EQ(everything(), expected);
        const auto redo = store.service->undo(*store.service->latestChange().value());
        EXPECT_EQ(everything(), before);
        const auto undo = store.service->undo(*redo);
        EXPECT_EQ(everything(), expected);
        store.service->undo(*undo);
        EXPECT_EQ(everything(), before);
    }
    // What counted on since keeps what it counted.
    correct(running, {.creationDate = at(100)});
    store.clock->time = at(1020);
    store.service->finishInterval(running, taskId);
    store.service->undo(*store.service->latestChange().value());
    EXPECT_EQ(everything(), "first other 200.0|NULL|170.0|1800.0|1 200.0|NULL|60.0|90.0|1 text|1");
    // What is so already, or is not there, is no change.
    countSaves();
    saves = 0;
    const auto latest = store.service->latestChange().value();
    store.service->renameTask(taskId, "first");
    store.service->editNote(id, taskId, "text");
    store.service->moveNote(id, taskId, base::Uuid::random());
    correct(finished, {.creationDate = at(200), .timeSpent = 60s, .maxDuration = 90s});
    correct(finished, {.timeSpent = 61s, .taskId = base::Uuid::random()});
    store.service->extendInterval(finished, taskId, 300s);
    EXPECT_EQ(saves, 0);
    EXPECT_EQ(store.service->latestChange().value(), latest);
}

TEST_F(DataOperationsServiceTest, MarksATaskDoneWhileNothingOfItRunsAndUntilItIsStarted) {
    const base::Uuid taskId = *task.id();
    const auto mark = [&] { store.service->markTaskDone(taskId); };
    const auto reopen = [&] { store.service->reopenTask(taskId); };
    const auto undo = [this] { store.service->undo(*store.service->latestChange().value()); };
    const auto add = [&](const IntervalState& state) {
        return [this, &taskId, state] {
            store.service->addInterval({at(1), 0s, base::Uuid::random(), 1800s, state}, taskId);
        };
    };
    Task& other = store.addTask("other");
    const base::Uuid moved = *store.addInterval(other, IntervalState::running(at(1))).id();
    const auto moveIn = [&] {
        store.service->correctInterval(moved, *other.id(), {.taskId = taskId});
    };
    std::shared_ptr<const Change> deletion;
    const auto takeOut = [&] {
        store.service->deleteInterval(*task.intervalSummary()->running.front()->id(), taskId);
        deletion = store.service->latestChange().value();
    };
    const auto bringBack = [&] { store.service->undo(*deletion); };
    countSaves();
    struct Row {
        const char* what;
        std::function<void()> act;
        const char* doneDate;
        int saves;
    };
    for (const auto& [what, act, doneDate, expected] :
         std::vector<Row>{{"mark", mark, "1001.0", 1},
                          {"mark again", mark, "1001.0", 0},
                          {"past interval", add(IntervalState::finished()), "1001.0", 1},
                          {"reopen", reopen, "NULL", 1},
                          {"reopen again", reopen, "NULL", 0},
                          {"undo of that", undo, "1001.0", 1},
                          {"what runs comes in", moveIn, "NULL", 1},
                          {"undo of that", undo, "1001.0", 1},
                          {"start", add(IntervalState::running(at(2))), "NULL", 1},
                          {"undo while it runs", undo, "NULL", 0},
                          {"mark while it runs", mark, "NULL", 0},
                          {"taken out", takeOut, "NULL", 1},
                          {"mark", mark, "1013.0", 1},
                          {"what runs comes back", bringBack, "NULL", 1}}) {
        store.clock->time = store.clock->time + 1s;
        saves = 0;
        act();
        EXPECT_EQ(store.sql("SELECT doneDate FROM Task WHERE pk = 1"), doneDate) << what;
        EXPECT_EQ(saves, expected) << what;
    }
    const base::Uuid gone = *store.addTask("gone").id();
    store.service->markTaskDone(gone);
    store.service->deleteTask(gone);
    undo();
    EXPECT_EQ(store.sql("SELECT name, doneDate FROM Task WHERE id = '" + gone.text() + "'"),
              "gone|1014.0");
}

TEST_F(DataOperationsServiceTest, TouchesNothingForAnIdThatMatchesNothing) {
    const base::Uuid other = *store.addTask("other").id();
    const base::Uuid interval = *store.addInterval(task, IntervalState::running(at(900))).id();
    store.service->addNote({at(5), id, "text"}, *task.id());
    countSaves();
    const base::Uuid unknown = base::Uuid::random();
    store.service->deleteTask(unknown);
    store.service->markTaskDone(unknown);
    store.service->addInterval({at(1), 0s, unknown, 5s, IntervalState::paused()}, unknown);
    store.service->finishInterval(interval, other);
    store.service->finishInterval(interval, unknown);
    store.service->deleteInterval(interval, other);
    store.service->addNote({at(1), unknown, "text"}, unknown);
    store.service->deleteNote(id, other);
    store.context().save();
    EXPECT_EQ(saves, 0);
}

TEST_F(DataOperationsServiceTest, FinishesAllThatIsDueWithOneReadingAndOneSave) {
    struct Row {
        IntervalState state;
        base::Seconds duration;
        base::Seconds maxDuration;
        base::Seconds expected;
        bool isFinished;
    };
    const auto rows = std::to_array<Row>({
        {IntervalState::running(at(-200)), 300s, 1500s, 1500s, true},
        {IntervalState::running(at(-200.5)), 300s, 1500s, 1500.5s, true},
        {IntervalState::running(at(-199.5)), 300s, 1500s, 300s, false},
        {IntervalState::running(at(-1e6)), 300s, 0s, 300s, false},
        {IntervalState::running(at(2000)), 10s, 20s, 10s, false},
        {IntervalState::running(at(2000)), 20s, 20s, 20s, true},
        // A stamp plays no part.
        {IntervalState::running(at(900), at(5000)), 0s, 200s, 0s, false},
        {IntervalState::paused(), 1500s, 1500s, 1500s, false},
    });
    std::vector<Interval*> intervals;
    intervals.reserve(rows.size());
    for (const Row& row : rows) {
        intervals.push_back(&store.addInterval(task, row.state, row.duration, row.maxDuration));
    }
    const Interval& withoutTask = addIntervalWithoutTask(at(0));
    countSaves();
    store.clock->step = 500s;
    store.service->finishDueIntervals();
    EXPECT_EQ(saves, 1);
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(intervals[i]->duration(), rows[i].expected) << i;
        EXPECT_EQ(intervals[i]->intervalState(),
                  rows[i].isFinished ? IntervalState::finished() : rows[i].state)
            << i;
    }
    EXPECT_EQ(withoutTask.intervalState(), IntervalState::finished());
    store.clock->time = at(1000);
    store.service->finishDueIntervals();
    EXPECT_EQ(saves, 1) << "nothing was due";
}

TEST_F(DataOperationsServiceTest, FindsWhatRunsWhileASaveIsStillBeingTold) {
    store.addInterval(task, IntervalState::running(at(0)), 0s, 5s);
    subscription = store.context().connectObserver([this](const auto&) {
        if (++saves == 1) {
            store.service->finishDueIntervals();
        }
    });
    store.addInterval(task, IntervalState::running(at(0)), 0s, 6s);
    EXPECT_EQ(saves, 2);
    EXPECT_EQ(states(), "2|NULL|NULL|1000.0 2|NULL|NULL|1000.0");
}

using DataOperationsServiceDeathTest = DataOperationsServiceTest;

TEST_F(DataOperationsServiceDeathTest, EndsTheProgramWhereASaveFails) {
    constexpr auto kMessage =
        "^Hearthmark/DataOperationsService: Fatal error: Unresolved error .*, "
        "\\[code: [0-9]+, extendedCode: [0-9]+, statement: \"INSERT .*\"\\]";
    const base::Seconds notANumber(std::numeric_limits<double>::quiet_NaN());
    const IntervalData unwritable{at(1), notANumber, id, 1800s, IntervalState::paused()};
    EXPECT_DEATH(store.service->addInterval(unwritable, *task.id()), kMessage);
    store.sql("ALTER TABLE Task RENAME TO Gone");
    EXPECT_DEATH(store.service->createTask("a"), kMessage);
}

}  // namespace hearthmark::store
