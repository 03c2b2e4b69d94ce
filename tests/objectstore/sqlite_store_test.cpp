// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <array>
#include <fstream>
#include <thread>

#include "objectstore/store_copy.h"
#include "objectstore/store_error.h"
#include "store/hearthmark_model.h"
#include "support/test_store.h"

namespace hearthmark::objectstore {

namespace {

namespace fs = std::filesystem;
using store::Task;

std::optional<StoreError> failureOfOpening(const fs::path& directory) {
    try {
        tests::open(directory);
    } catch (const StoreError& error) {
        return error;
    }
    return std::nullopt;
}

int errorOfOpening(const fs::path& directory) {
    const auto failure = failureOfOpening(directory);
    return failure ? failure->code() : 0;
}

// Copies the file of a store that is open, as a crash would leave it: what was saved last stands in
// its log.
void copyCrashed(const tests::TestStore& store, const fs::path& directory) {
    fs::copy(store.file, directory);
    fs::copy(store.file.string() + "-wal", directory);
}

}  // namespace

TEST(SqliteStore, LeavesAFileThatItRefusesByteForByteAsItWas) {
    struct Row {
        const char* what;
        std::function<void(const fs::path&)> damage;
        int error;
        StoreError::Cause cause = StoreError::Cause::damaged;
        const char* said = "";
    };
    const auto change = [](const char* text) {
        return [text](const fs::path& file) { tests::sql(file, text); };
    };
    const auto rows = std::to_array<Row>({
        {"garbage", [](const auto& file) { tests::overwrite(file, 0, "garbage"); }, 26},
        {"another application", change("PRAGMA application_id = 77"), 26,
         StoreError::Cause::otherApplication},
        {"newer", change("PRAGMA user_version = 1000"), 20, StoreError::Cause::newerVersion},
        {"newer, as it may be",
         [](const auto& file) {
             tests::sql(file, "PRAGMA user_version = 1000");
             tests::overwrite(file, fs::file_size(file) - 8192, std::string(4096, 0));
         },
         20, StoreError::Cause::newerVersion},
        {"unknown", change("PRAGMA user_version = 0"), 20, StoreError::Cause::unknownVersion},
        {"a column that is missing", change("ALTER TABLE Note RENAME COLUMN text TO gone"), 1,
         StoreError::Cause::damaged, "text"},
        {"a key that is missing",
         change("ALTER TABLE Task RENAME TO t; CREATE VIEW Task AS "
                "SELECT NULL AS pk, id, creationDate, name, doneDate FROM t"),
         11},
        {"cut", [](const auto& file) { fs::resize_file(file, fs::file_size(file) / 2); }, 11},
        {"cut short", [](const auto& file) { fs::resize_file(file, 50); }, 26},
        {"a zeroed page",
         [](const auto& file) {
             tests::overwrite(file, fs::file_size(file) - 8192, std::string(4096, 0));
         },
         11},
    });
    for (const Row& row : rows) {
        tests::TestStore store;
        store.addTask(std::string(50000, 'x'));
        store.close();
        row.damage(store.file);
        const auto before = tests::filesOf(store.directory.path);
        const auto failure = failureOfOpening(store.directory.path);
        ASSERT_TRUE(failure) << row.what;
        EXPECT_EQ(failure->code(), row.error) << row.what;
        EXPECT_EQ(failure->cause(), row.cause) << row.what;
        EXPECT_NE(std::string(failure->what()).find(row.said), std::string::npos) << row.what;
        EXPECT_TRUE(tests::filesOf(store.directory.path) == before) << row.what;
    }
    const tests::TemporaryDirectory directory;
    const fs::path file = directory.path / "Hearthmark.sqlite";
    fs::create_directory(file);
    EXPECT_EQ(failureOfOpening(directory.path)->cause(), StoreError::Cause::notAFile);
    fs::remove(file);
    fs::create_symlink("away", file);
    EXPECT_EQ(failureOfOpening(directory.path)->cause(), StoreError::Cause::noPlace);
    EXPECT_TRUE(fs::is_symlink(file)) << "what it leads to may come back";
    fs::create_symlink("loop", directory.path / "loop");
    EXPECT_EQ(failureOfOpening(directory.path / "loop/b")->cause(), StoreError::Cause::noPlace);
}

TEST(SqliteStore, ReadsWhatItsJournalsMakeOfAFile) {
    tests::TestStore crashed;
    crashed.addTask("in the log");
    const tests::TemporaryDirectory elsewhere;
    const tests::TemporaryDirectory here;
    copyCrashed(crashed, elsewhere.path);
    const fs::path link = here.path / "Hearthmark.sqlite";
    fs::create_symlink(elsewhere.path / "Hearthmark.sqlite", link);
    EXPECT_EQ(countRows(link, Task::entity()), 1) << "the log lies where the link leads";

    crashed.close();
    crashed.sql(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION SELECT i + 1 FROM n WHERE i < 50) "
        "INSERT INTO Task (name) SELECT zeroblob(10000) FROM n; PRAGMA journal_mode = DELETE");
    const tests::TemporaryDirectory halfway;
    sqlite3* opened = nullptr;
    sqlite3_open(crashed.file.c_str(), &opened);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> other(opened, &sqlite3_close);
    const char* write = "PRAGMA cache_size = 1; BEGIN; DELETE FROM Task WHERE pk % 2 = 0";
    ASSERT_EQ(sqlite3_exec(opened, write, nullptr, nullptr, nullptr), SQLITE_OK);
    fs::copy(crashed.file, halfway.path);
    fs::copy(crashed.file.string() + "-journal", halfway.path);
    EXPECT_EQ(tests::open(halfway.path)->viewContext().objects<Task>().size(), 51);
}

TEST(SqliteStore, LeavesTheLogOfACrashWhereItRefusesTheFile) {
    tests::TestStore store;
    store.addTask("kept");
    store.sql("PRAGMA user_version = 1000");
    const tests::TemporaryDirectory newer;
    copyCrashed(store, newer.path);
    const auto before = tests::filesOf(newer.path);
    EXPECT_EQ(errorOfOpening(newer.path), 20);
    auto after = tests::filesOf(newer.path);
    after.erase("Hearthmark.sqlite-shm");  // SQLite's index of the log, made to read it
    EXPECT_TRUE(after == before);
}

TEST(SqliteStore, AddsTheAttributesOfALaterVersion) {
    tests::TestStore store;
    store.addTask("old");
    store.close();
    store.sql("ALTER TABLE Task DROP COLUMN name; ALTER TABLE Note DROP COLUMN text");
    Model model = store::hearthmarkModel();
    model.version = 1000;
    for (const char* expected : {"NULL", "NULL new"}) {
        PersistentContainer container("Hearthmark", model, store.directory.path);
        container.loadPersistentStores();
        EXPECT_EQ(store.sql("SELECT name FROM Task"), expected);
        container.viewContext().insert<Task>()->setName("new");
        container.viewContext().save();
    }
    EXPECT_EQ(errorOfOpening(store.directory.path), 20) << "it is newer now than the program";
}

TEST(SqliteStore, NeverReplaysALogOverANewFile) {
    tests::TestStore lost;
    lost.addTask("lost");
    const tests::TemporaryDirectory directory;
    copyCrashed(lost, directory.path);
    const std::string log = tests::filesOf(directory.path).at("Hearthmark.sqlite-wal");
    fs::resize_file(directory.path / "Hearthmark.sqlite", 0);
    EXPECT_TRUE(tests::open(directory.path)->viewContext().objects<Task>().empty());
    EXPECT_TRUE(tests::filesOf(directory.path).at("Hearthmark.sqlite-wal.orphaned") == log);
    fs::remove(directory.path / "Hearthmark.sqlite");
    std::ofstream(directory.path / "Hearthmark.sqlite-wal") << "another";
    std::ofstream(directory.path / "Hearthmark.sqlite-journal") << "of another program";
    EXPECT_TRUE(tests::open(directory.path)->viewContext().objects<Task>().empty());
    EXPECT_TRUE(tests::filesOf(directory.path).at("Hearthmark.sqlite-wal.orphaned") == log);
    EXPECT_EQ(tests::filesOf(directory.path).at("Hearthmark.sqlite-wal.orphaned-2"), "another");
    EXPECT_EQ(tests::filesOf(directory.path).count("Hearthmark.sqlite-journal.orphaned"), 1);
}

TEST(SqliteStore, WaitsForAnotherProgramThatWrites) {
    tests::TestStore store;
    sqlite3* other = nullptr;
    sqlite3_open(store.file.c_str(), &other);
    sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    const std::jthread ending([other] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        sqlite3_close(other);
    });
    EXPECT_NO_THROW(store.addTask("a"));
}

TEST(SqliteStore, ShowsItsFilesToTheirOwnerOnly) {
    const mode_t mask = ::umask(0);
    const tests::TemporaryDirectory directory;
    const fs::path inner = directory.path / "a" / "b";
    const auto container = tests::open(inner);
    container->viewContext().insert<Task>();
    container->viewContext().save();
    ::umask(mask);
    for (const auto& entry : fs::recursive_directory_iterator(directory.path)) {
        EXPECT_EQ(entry.status().permissions(), fs::perms(entry.is_directory() ? 0700 : 0600));
    }
    EXPECT_EQ(tests::filesOf(inner).size(), 3) << "the file, its log and the log's index";
    EXPECT_EQ(tests::sql(inner / "Hearthmark.sqlite", "PRAGMA journal_mode"), "wal");
}

TEST(SqliteStore, ReopensWithExactlyWhatWasSaved) {
    const tests::TemporaryDirectory directory;
    const fs::path inner = "/" + (directory.path / "a ?mode=memory#%41'\"").string();
    const auto names = std::to_array<std::string>(
        {std::string("\0a\0", 3), "\xff\xc3(", "", std::string(1000000, 'x')});
    const base::Date date = tests::at(784111777.1234567);
    auto container = tests::open(inner);
    for (const std::string& name : names) {
        const auto task = container->viewContext().insert<Task>();
        task->setName(name);
        task->setCreationDate(date);
    }
    container->viewContext().save();
    container.reset();
    EXPECT_TRUE(fs::exists(inner / "Hearthmark.sqlite"));
    container = tests::open(inner);
    std::size_t i = 0;
    for (const Task& task : container->viewContext().objects<Task>()) {
        EXPECT_TRUE(task.name() == names[i++]) << i;
        EXPECT_EQ(task.creationDate(), date);
    }
    EXPECT_EQ(i, std::size(names));
}

}  // namespace hearthmark::objectstore
