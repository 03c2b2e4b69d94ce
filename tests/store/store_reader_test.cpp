// SPDX-License-Identifier: MIT
#include "store/store_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <functional>

#include "export/everything_document.h"
#include "export/interval_rows.h"
#include "export/interval_table.h"
#include "objectstore/store_error.h"
#include "store/newest_first.h"
#include "store/note.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

namespace fs = std::filesystem;
using LeftRunning = StoreReader::LeftRunning;
using tests::at;

constexpr base::Date kNow = at(1000);
constexpr base::Date kFirst{base::Seconds(-HUGE_VAL)};
constexpr base::Date kLast{base::Seconds(HUGE_VAL)};

std::string textOf(exporting::TextParts&& parts) {
    std::string text;
    while (parts.appendNext(text)) {
    }
    return text;
}

// Both exports, and the id of the newest interval that runs.
std::string readText(const fs::path& directory, LeftRunning leftRunning = LeftRunning::runs) {
    StoreReader reader(directory, leftRunning);
    const auto newest = reader.newestRunning();
    return textOf(exporting::EverythingDocument(reader.everything())) +
           textOf(exporting::IntervalTable(
               exporting::intervalRows(reader.intervals(kFirst, kLast), kNow),
               std::make_shared<base::LocalCalendar>())) +
           (newest && newest->interval.id ? newest->interval.id->text() : "-");
}

std::string objectsText(const tests::TestStore& store) {
    const auto& context = store.container->viewContext();
    const auto tasks = context.objects<Task>();
    const auto* newest = newestRunning(context.objects<Interval>(), [](const Interval& interval) {
        return interval.id() && interval.task() != nullptr && interval.task()->id();
    });
    return textOf(exporting::EverythingDocument(tasks)) +
           textOf(exporting::IntervalTable(exporting::intervalRows(tasks, kFirst, kLast, kNow),
                                           std::make_shared<base::LocalCalendar>())) +
           (newest != nullptr && newest->id() ? newest->id()->text() : "-");
}

}  // namespace

TEST(StoreReader, ReadsWhatTheObjectsSay) {
    for (const char* change :
         {"", "UPDATE Task SET name = x'41', creationDate = 'x'", "UPDATE Task SET id = 'none'",
          "UPDATE Task SET name = CAST(x'61ff62' AS TEXT)", "UPDATE Task SET doneDate = 5.5",
          "UPDATE Interval SET id = NULL WHERE pk = 2",
          "UPDATE Interval SET duration = 'long', maxDuration = 9e999",
          "UPDATE Interval SET creationDate = 'x'", "UPDATE Interval SET creationDate = 9e999",
          "UPDATE Interval SET creationDate = 5",
          "UPDATE Interval SET creationDate = NULL WHERE pk = 1",
          "UPDATE Interval SET task = 99 WHERE pk = 2", "UPDATE Interval SET task = 'first'",
          "UPDATE RawIntervalState SET state = 7", "UPDATE RawIntervalState SET state = 65537",
          "UPDATE RawIntervalState SET state = '1'", "UPDATE RawIntervalState SET started = 'now'",
          "UPDATE RawIntervalState SET started = 9e999, visited = 9e999",
          "UPDATE RawIntervalState SET started = 3.2e16",
          // An interval has the last of the states that name it.
          "INSERT INTO RawIntervalState (state, interval) VALUES (2, 1), (2, 2)",
          "UPDATE RawIntervalState SET interval = 99 WHERE pk = 1", "DELETE FROM RawIntervalState",
          "UPDATE Note SET text = x'41', id = NULL", "UPDATE Note SET task = 99"}) {
        tests::TestStore store;
        Task& task = store.addTask("a");
        store.addTask("b");
        store.addInterval(task, IntervalState::running(at(940)), base::Seconds(5));
        store.addInterval(task, IntervalState::running(at(950)), base::Seconds(6));
        store.addInterval(task, IntervalState::paused(), base::Seconds(7.25));
        store.service->addNote({kNow, base::Uuid::random(), "n"}, *task.id());
        store.reopen(change);
        EXPECT_EQ(readText(store.directory.path), objectsText(store)) << change;
    }
}

TEST(StoreReader, FinishesWhatWasLeftRunningAsTheNextStartDoes) {
    tests::TestStore store;
    Task& task = store.addTask("a");
    for (const auto visited : {base::OptionalDate(), base::OptionalDate(at(900)),
                               base::OptionalDate(at(960)), base::OptionalDate(at(1e300))}) {
        store.addInterval(task, IntervalState::running(at(940), visited), base::Seconds(5.5));
    }
    const std::string before = readText(store.directory.path, LeftRunning::isFinished);
    EXPECT_NE(before, readText(store.directory.path));
    store.service->finishIntervalsLeftRunning();
    const std::string after = objectsText(store);
    // What ran is not the newest that runs any more.
    EXPECT_EQ(before.substr(0, before.rfind('\n')), after.substr(0, after.rfind('\n')));
}

TEST(StoreReader, LeavesNoTraceWhateverStateTheFileIsIn) {
    struct Row {
        const char* what;
        std::function<void(tests::TestStore& store)> prepare;
        std::vector<const char*> copied;
    };
    const auto rows = std::to_array<Row>({
        {"open in the program", [](auto&) {}, {}},
        {"closed", [](auto& store) { store.close(); }, {}},
        {"after a crash", [](auto&) {}, {"", "-wal", "-shm"}},
        {"a copy with its log", [](auto&) {}, {"", "-wal"}},
        {"the first version",
         [](auto& store) {
             store.close();
             store.sql(tests::kToFirstVersion);
         },
         {}},
        {"kept by another journal",
         [](auto& store) {
             store.close();
             store.sql("PRAGMA journal_mode = DELETE");
         },
         {}},
    });
    for (const Row& row : rows) {
        tests::TestStore store;
        store.addTask("in the log");
        const tests::TemporaryDirectory elsewhere;
        row.prepare(store);
        for (const char* suffix : row.copied) {
            fs::copy(store.file.string() + suffix, elsewhere.path);
        }
        const fs::path directory = row.copied.empty() ? store.directory.path : elsewhere.path;
        // Within one process SQLite shares the index of the log, whoever may write it.
        const auto found = [&] {
            auto files = tests::filesOf(directory);
            const auto index = files.find("Hearthmark.sqlite-shm");
            if (row.copied.empty() && index != files.end()) {
                index->second = "there";
            }
            return files;
        };
        const auto before = found();
        {
            StoreReader reader(directory, LeftRunning::runs);
            const auto tasks = reader.tasks();
            ASSERT_EQ(tasks.size(), 1) << row.what;
            EXPECT_EQ(tasks.front().name, "in the log") << row.what;
            EXPECT_EQ(tasks.front().doneDate, std::nullopt) << row.what;
        }
        EXPECT_TRUE(found() == before) << row.what;
    }
}

TEST(StoreReader, KeepsNobodyWaitingAndSeesOneMoment) {
    tests::TestStore store;
    store.addTask("a");
    StoreReader reader(store.directory.path, LeftRunning::runs);
    const auto begun = std::chrono::steady_clock::now();
    store.addTask("b");
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(2));
    EXPECT_EQ(reader.tasks().size(), 1);
    EXPECT_EQ(StoreReader(store.directory.path, LeftRunning::runs).tasks().size(), 2);
}

TEST(StoreReader, RefusesWhatItCannotReadAndFindsNothingWhereNothingIs) {
    struct Row {
        const char* change;
        objectstore::StoreError::Cause cause;
    };
    using Cause = objectstore::StoreError::Cause;
    for (const Row& row : {Row{"PRAGMA user_version = 3", Cause::newerVersion},
                           Row{"PRAGMA user_version = 0", Cause::unknownVersion},
                           Row{"PRAGMA application_id = 7", Cause::otherApplication},
                           Row{"ALTER TABLE Task RENAME TO t", Cause::damaged}}) {
        tests::TestStore store;
        store.close();
        store.sql(row.change);
        try {
            StoreReader(store.directory.path, LeftRunning::runs).tasks();
            ADD_FAILURE() << row.change;
        } catch (const objectstore::StoreError& error) {
            EXPECT_EQ(error.cause(), row.cause) << row.change;
        }
    }
    const tests::TemporaryDirectory nothing;
    StoreReader reader(nothing.path / "none", LeftRunning::runs);
    EXPECT_TRUE(reader.tasks().empty() && reader.everything().empty() && !reader.newestRunning());
    EXPECT_TRUE(fs::is_empty(nothing.path));
}

}  // namespace hearthmark::store
