// SPDX-License-Identifier: MIT
#include "store/undo_history.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

#include "store/note.h"
#include "support/random_operations.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

struct IntervalRow {
    std::string task;
    std::string creationDate;
    std::string maxDuration;
    // Duration, state and start.
    std::string counted;

    bool isFinished() const { return counted.find("|2|") != std::string::npos; }
};

// All rows, by id, but for keys and stamps.
struct Rows {
    explicit Rows(objectstore::ManagedObjectContext& context) {
        const auto text = [](const auto& optional) {
            std::ostringstream out;
            out << std::hexfloat;
            if constexpr (requires { optional->sinceReferenceDate(); }) {
                out << (optional ? optional->sinceReferenceDate().count() : -1);
            } else {
                out << optional.value_or("none");
            }
            return out.str();
        };
        const auto owner = [](const auto& entity) {
            return entity.task() != nullptr ? entity.task()->id()->text() : "no task";
        };
        for (const Task& task : context.objects<Task>()) {
            tasksAndNotes[task.id()->text()] = text(task.name()) + text(task.creationDate());
        }
        for (const Note& note : context.objects<Note>()) {
            tasksAndNotes[note.id()->text()] =
                text(note.text()) + text(note.creationDate()) + owner(note);
        }
        for (const Interval& interval : context.objects<Interval>()) {
            std::ostringstream counted;
            counted << std::hexfloat << interval.duration().count() << "|"
                    << interval.rawState()->state() << "|" << text(interval.rawState()->started());
            intervals[interval.id()->text()] = {
                .task = owner(interval),
                .creationDate = text(interval.creationDate()),
                .maxDuration = std::to_string(interval.maxDuration().count()),
                .counted = counted.str()};
        }
    }

    std::map<std::string, std::string> tasksAndNotes;
    std::map<std::string, IntervalRow> intervals;
};

// Each of the first, but for its time where that may have counted.
template <class HasKeptItsTime>
void expectIntervals(const Rows& expected, const Rows& rows, const HasKeptItsTime& hasKeptItsTime) {
    for (const auto& [id, row] : expected.intervals) {
        ASSERT_TRUE(rows.intervals.contains(id)) << id;
        const IntervalRow& now = rows.intervals.at(id);
        EXPECT_EQ(now.task, row.task);
        EXPECT_EQ(now.creationDate, row.creationDate);
        EXPECT_EQ(now.maxDuration, row.maxDuration);
        if (std::invoke(hasKeptItsTime, row)) {
            EXPECT_EQ(now.counted, row.counted);
        }
    }
}

TEST(UndoHistory, TakesAllBackAndDoesAllAgainFieldByField) {
    constexpr unsigned kRounds = 20;
    constexpr int kOperations = 90;  // at most as many steps as are remembered
    int steps = 0;
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        SCOPED_TRACE(seed);
        tests::TestStore store;
        tests::RandomOperations earlier(store.container, seed);
        for (int each = 0; each < kOperations; ++each) {
            earlier.doOne();
        }
        const Rows beginning(store.context());
        tests::RandomOperations random(store.container, kRounds + seed);
        for (int each = 0; each < kOperations; ++each) {
            random.doOne();
        }
        const Rows end(store.context());
        int undone = 0;
        while (random.history().state().value().undo) {
            const auto redo = random.history().state().value().redo;
            random.history().undo();
            // What was so already leaves nothing to redo.
            undone += random.history().state().value().redo != redo ? 1 : 0;
        }
        steps += undone;
        const Rows before(store.context());
        EXPECT_TRUE(before.tasksAndNotes == beginning.tasksAndNotes);
        expectIntervals(beginning, before, &IntervalRow::isFinished);
        // More there is only what was started, on tasks that were there, as it was started.
        for (const auto& [id, row] : before.intervals) {
            EXPECT_TRUE(beginning.tasksAndNotes.contains(row.task) || row.task == "no task");
            EXPECT_TRUE(beginning.intervals.contains(id) || std::stoi(row.maxDuration) % 300 == 0);
        }
        // What was undone along the way and not done again stays undone.
        for (; undone > 0; --undone) {
            random.history().redo();
        }
        const Rows redone(store.context());
        EXPECT_TRUE(redone.tasksAndNotes == end.tasksAndNotes);
        EXPECT_EQ(redone.intervals.size(), end.intervals.size());
        // Without a task it went on, until it was brought back.
        expectIntervals(end, redone, [](const IntervalRow& row) { return row.task != "no task"; });
    }
    EXPECT_GT(steps, 20 * static_cast<int>(kRounds));
}

}  // namespace
}  // namespace hearthmark::store
