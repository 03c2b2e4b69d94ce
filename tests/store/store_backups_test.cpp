// SPDX-License-Identifier: MIT
#include "store/store_backups.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <utility>

#include "objectstore/store_error.h"
#include "store/hearthmark_model.h"
#include "store/persistent_container_factory.h"
#include "store/task_import.h"
#include "support/backed_up_store.h"
#include "support/fault_vfs.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

using tests::BackedUpStore;
using tests::bytesOf;
using tests::FaultVfs;

constexpr int kDamages = 300;
constexpr auto kBackup = "Backups/Hearthmark-2001-01-02.sqlite";

TEST(TaskImport, BacksUpWhatIsThereAndAddsNothingWhereItCannot) {
    BackedUpStore store;
    const TaskImport import(store.service, store.backups);
    const auto tasks = [](int count) {
        std::vector<TaskRecord> records(static_cast<std::size_t>(count));
        for (TaskRecord& record : records) {
            record.id = base::Uuid::random();
        }
        return records;
    };
    const auto first = tasks(2);
    EXPECT_FALSE(import.import(first) || import.import(first));
    EXPECT_EQ(store.names(), "");  // nothing was there, and then nothing was added
    EXPECT_FALSE(import.import(tasks(1)));
    ASSERT_EQ(store.backups->all().size(), 1U);
    EXPECT_EQ(StoreBackups::counts(store.backups->all()[0]).tasks, 2);
    std::filesystem::remove_all(store.directory.path / "Backups");
    std::ofstream(store.directory.path / "Backups") << "no folder";
    EXPECT_TRUE(import.import(tasks(1)));
    EXPECT_EQ(store.sql("SELECT count(*) FROM Task"), "3");
}

}  // namespace

TEST(StoreBackups, KeepSevenDaysFourWeeksAndTwelveMonths) {
    BackedUpStore store;
    store.begin(0);
    EXPECT_EQ(store.names(), "") << "there is nothing to keep yet";
    store.addTask("task");
    for (int day = 0; day <= 430; ++day) {
        store.begin(day);
        if (day % 200 == 0) {
            store.backups->keepDaily();
        }
    }
    // Of the weeks the Sundays, of the months the last days.
    EXPECT_EQ(store.names(),
              "2002-03-07 2002-03-06 2002-03-05 2002-03-04 2002-03-03 2002-03-02 2002-03-01 "
              "2002-02-28 2002-02-24 2002-02-17 2002-01-31 2001-12-31 2001-11-30 2001-10-31 "
              "2001-09-30 2001-08-31 2001-07-31 2001-06-30 2001-05-31 2001-04-30 ");
    // The last of a month stays while the backup that would stand for it cannot be read.
    tests::overwrite(store.directory.path / "Backups/Hearthmark-2001-05-31.sqlite", 0, "damaged");
    store.begin(460);
    EXPECT_NE(store.names().find("2001-04-30"), std::string::npos);
    struct stat status {};
    ::stat((store.directory.path / "Backups/Hearthmark-2002-04-06.sqlite").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST(StoreBackups, OfDaysToComeStandBackForThoseThatWere) {
    BackedUpStore store;
    store.addTask("task");
    store.begin(0);
    for (int day = 10; day < 38; ++day) {
        std::filesystem::copy(store.directory.path / "Backups/Hearthmark-2001-01-01.sqlite",
                              store.directory.path / "Backups" /
                                  ("Hearthmark-2030-01-" + std::to_string(day) + ".sqlite"));
    }
    store.begin(1);
    EXPECT_TRUE(store.names().starts_with("2001-01-02 2001-01-01 2030-01-31 2030-01-30 "));
    EXPECT_EQ(store.backups->all().size(), 2 + 22) << "none of the days to come has gone";
    EXPECT_EQ(store.backups->newestGood()->file.stem(), "Hearthmark-2001-01-02");
}

TEST(StoreBackups, RestoreWhatTheyHoldAndKeepWhatWasThere) {
    BackedUpStore store;
    store::Task& task = store.addTask("before");
    store.addInterval(task, IntervalState::finished());
    store.begin(1);
    const std::string before = store.content();
    store.service->deleteTask(*task.id());
    store.addInterval(store.addTask("after"), IntervalState::finished());
    store.addTask("after");
    const std::string after = store.content();
    const StoreBackup daily = *store.backups->newestGood();
    EXPECT_EQ(StoreBackups::counts(daily).intervals, 1);
    const RestoreChanges changes = store.backups->changes(daily);
    EXPECT_EQ(changes.tasks, (objectstore::RowDifference{1, 2, 0}));
    EXPECT_EQ(changes.intervals, (objectstore::RowDifference{1, 1, 0}));
    EXPECT_EQ(changes.notes, objectstore::RowDifference());

    store.backups->prepareRestore(daily);
    EXPECT_EQ(store.names(), "2001-01-02T01-00-00 2001-01-02 ");
    store.close();
    std::ofstream(store.file.string() + "-wal") << "of the store that goes";
    store.backups->completeRestore();
    EXPECT_EQ(store.content(), before);
    store.reopen("UPDATE Task SET name = 'changed'; UPDATE RawIntervalState SET state = 1");
    EXPECT_EQ(store.backups->changes(daily).tasks, (objectstore::RowDifference{0, 0, 1}));
    EXPECT_EQ(store.backups->changes(daily).intervals, (objectstore::RowDifference{0, 0, 1}));
    store.backups->prepareRestore(*store.backups->newestGood());
    // As while another program reads: its log would be lost, or replayed over the backup.
    EXPECT_THROW(store.backups->completeRestore(), objectstore::StoreError);
    EXPECT_EQ(store.sql("SELECT name FROM Task"), "changed");
    EXPECT_FALSE(std::filesystem::exists(store.directory.path / "Restored.sqlite"));
    store.backups->prepareRestore(store.backups->all().at(1));
    store.close();
    store.backups->completeRestore();
    EXPECT_EQ(store.content(), after);
}

TEST(StoreBackups, OfAnOlderVersionAreComparedAsWhatTheyBecome) {
    BackedUpStore store;
    store.addTask("task");
    store.begin(1);
    const StoreBackup daily = *store.backups->newestGood();
    tests::sql(daily.file, tests::kToFirstVersion);
    EXPECT_EQ(store.backups->changes(daily).tasks, objectstore::RowDifference());
    store.service->markTaskDone(*store.first<store::Task>().id());
    EXPECT_EQ(store.backups->changes(daily).tasks, (objectstore::RowDifference{0, 0, 1}));
    store.backups->prepareRestore(daily);
    store.close();
    store.backups->completeRestore();
    EXPECT_EQ(store.sql("PRAGMA user_version"), "1");
    store.reopen();
    EXPECT_EQ(store.sql("SELECT name, doneDate FROM Task; PRAGMA user_version"), "task|NULL 2");
}

TEST(StoreBackups, FailWithoutATraceInTheStoreAndInOlderBackups) {
    BackedUpStore store;
    store.addTask("task");
    const std::string content = store.content();
    store.begin(1);
    const std::filesystem::path folder = store.directory.path / "Backups";
    int faults = 0;
    for (const auto call : {FaultVfs::Call::read, FaultVfs::Call::write, FaultVfs::Call::lock}) {
        FaultVfs vfs;
        for (int after = 0;; ++after) {
            testing::internal::CaptureStderr();
            vfs.failOnce(call, after, FaultVfs::Fault::outOfSpace);
            store.begin(2);
            const bool hasFailed = vfs.hasFailed();
            const std::string said = testing::internal::GetCapturedStderr();
            const bool isKept = store.names() == "2001-01-03 2001-01-02 ";
            ASSERT_TRUE(isKept || said.starts_with("Hearthmark could not back up its data: "))
                << said;
            ASSERT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}),
                      isKept ? 2 : 1);
            // An armed fault that was not met would be now.
            ASSERT_TRUE(!hasFailed || store.backups->newestGood() == store.backups->all()[0]);
            std::filesystem::remove(folder / "Hearthmark-2001-01-03.sqlite");
            if (!hasFailed) {
                break;
            }
            ++faults;
        }
    }
    EXPECT_GT(faults, 10);
    EXPECT_EQ(store.content(), content);
}

TEST(StoreBackups, LoseNothingToACommandThatFailsAtAnyStep) {
    for (const std::string failing :
         {"cd() { false; }; ", "stat() { echo another; }; ", "mkdir() { false; }; ",
          "cp() { head -c 99 $2 >$3; false; }; ", "sync() { false; }; ", "mv() { false; }; ",
          "mv() { command mv $2 $3 Damaged/*; false; }; ",
          "mv() { [ $2 != Restored.sqlite ] && command mv $*; }; "}) {
        BackedUpStore store;
        store.addTask("kept");
        const std::string content = store.content();
        store.begin(1);
        store.close();
        tests::overwrite(store.file, 0, "damaged");
        std::ofstream(store.file.string() + "-wal") << "its log";
        const std::string damaged = bytesOf(store.file);
        ASSERT_NE(tests::type(failing + tests::commandIn(store.launchMessage())), 0) << failing;
        const std::string message = store.launchMessage();
        ASSERT_TRUE(store.isKept(damaged) && store.isKept("its log")) << failing;
        if (!message.empty()) {
            ASSERT_EQ(tests::type(tests::commandIn(message)), 0) << failing;
        }
        EXPECT_NE(tests::type(tests::commandIn(message)), 0) << "it is not to be done twice";
        EXPECT_EQ(store.launchMessage(), "") << failing;
        EXPECT_EQ(store.content(), content) << failing;
        EXPECT_TRUE(store.isKept(damaged) && store.isKept("its log")) << failing;
    }
}

TEST(StoreBackups, AreAdvisedOnlyWhereTheStoreIsDamaged) {
    struct Row {
        const char* what;
        std::function<void(const BackedUpStore&)> change;
        // Nothing where the program goes on.
        const char* said;
        bool isAdvised = false;
    };
    FaultVfs vfs;  // waits for nobody
    sqlite3* holder = nullptr;
    const auto remove = [](const BackedUpStore& store, const char* name) {
        std::filesystem::remove_all(store.directory.path / name);
    };
    const auto empty = [](const BackedUpStore& store) {
        std::filesystem::resize_file(store.file, 0);
    };
    const auto rows = std::to_array<Row>({
        {"newer", [](const auto& store) { store.sql("PRAGMA user_version = 1000"); },
         "\nA newer version of Hearthmark wrote the file. "},
        {"locked",
         [&](const auto& store) {
             sqlite3_open(store.file.c_str(), &holder);
             sqlite3_exec(holder,
                          "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE;"
                          "UPDATE Task SET name = name",
                          nullptr, nullptr, nullptr);
         },
         "\nAnother program keeps the file locked. "},
        {"no place for a new one",
         [&](const auto& store) {
             remove(store, "Hearthmark.sqlite");
             vfs.failOnce(FaultVfs::Call::write, 0, FaultVfs::Fault::outOfSpace);
         },
         "\nThe disk is full. "},
        {"unreadable",
         [&](const auto&) { vfs.failOnce(FaultVfs::Call::read, 0, FaultVfs::Fault::ioError); },
         "\nThe disk does not read or write. "},
        {"damaged", [](const auto& store) { tests::overwrite(store.file, 0, "damaged"); },
         "\nThe newest good backup is ", true},
        {"damaged, and its marks with it",
         [](const auto& store) { tests::overwrite(store.file, 68, std::string(4096, 'x')); },
         "\nThe newest good backup is ", true},
        {"without a table", [](const auto& store) { store.sql("DROP TABLE Note"); },
         "\nThe newest good backup is ", true},
        {"emptied", empty, "\nThe newest good backup is ", true},
        {"emptied, with no backup that is good",
         [&](const auto& store) {
             empty(store);
             std::filesystem::resize_file(store.directory.path / kBackup, 9);
         },
         "\nThere is no good backup. ", true},
        {"emptied, with backups that cannot be read",
         [&](const auto& store) {
             empty(store);
             remove(store, "Backups");
             std::filesystem::create_symlink("Backups", store.directory.path / "Backups");
         },
         "\nThe backups cannot be read: "},
        {"emptied, without backups",
         [&](const auto& store) {
             empty(store);
             remove(store, "Backups");
         },
         ""},
        {"taken away", [&](const auto& store) { remove(store, "Hearthmark.sqlite"); }, ""},
    });
    for (const Row& row : rows) {
        BackedUpStore store;
        store.addTask("task");
        store.begin(1);
        store.close();
        row.change(store);
        const std::string before = bytesOf(store.file);
        const std::string message = store.launchMessage();
        EXPECT_EQ(message.empty(), *row.said == 0) << row.what;
        EXPECT_NE(message.find(row.said), std::string::npos) << row.what << message;
        EXPECT_EQ(tests::commandIn(message) != "false", row.isAdvised) << row.what << message;
        EXPECT_TRUE(message.empty() || bytesOf(store.file) == before) << row.what;
        EXPECT_TRUE(!row.isAdvised || tests::type(tests::commandIn(message)) == 0) << row.what;
        EXPECT_TRUE(!row.isAdvised || store.launchMessage().empty()) << row.what;
        vfs.failOnce(FaultVfs::Call::read, -1, {});
        sqlite3_close(std::exchange(holder, nullptr));
    }
}

TEST(StoreBackups, KeepAnOlderStoreAsItWasBeforeItsTablesChange) {
    BackedUpStore store;
    store.addTask("task");
    store.close();
    const auto upgrade = [&store] {
        store.sql(tests::kToFirstVersion);
        objectstore::PersistentContainer container("Hearthmark", hearthmarkModel(),
                                                   store.directory.path);
        container.loadPersistentStores([&store] { store.backups->keepBeforeUpgrade(); });
    };
    store.setDay(1);
    for (const char* names : {"2001-01-02 ", "2001-01-02T01-00-00 2001-01-02 "}) {
        upgrade();
        EXPECT_EQ(store.sql("SELECT name, doneDate FROM Task; PRAGMA user_version"), "task|NULL 2");
        EXPECT_EQ(store.names(), names);
        const std::string columns = "SELECT name FROM pragma_table_info('Task')";
        EXPECT_EQ(tests::sql(store.backups->all()[0].file, columns + "; PRAGMA user_version"),
                  "pk id creationDate name 1");
    }
    std::filesystem::remove_all(store.directory.path / "Backups");
    std::ofstream(store.directory.path / "Backups") << "no folder";
    EXPECT_THROW(upgrade(), objectstore::StoreError);
    EXPECT_EQ(store.sql("PRAGMA user_version"), "1") << "none was kept, so it stays as it was";
}

TEST(StoreBackups, BringBackTheLastGoodDayWhereverTheStoreIsDamaged) {
    BackedUpStore store;
    std::vector<std::string> contents;
    for (int day = 0; day < 3; ++day) {
        store::Task& task = store.addTask(std::string(1500, 'a'));
        store.service->addNote({tests::at(day), base::Uuid::random(), std::string(3000, 'n')},
                               *task.id());
        for (int interval = 0; interval < 60; ++interval) {
            store.addInterval(task, IntervalState::finished());
        }
        contents.push_back(store.content());
        store.begin(day);
    }
    store.close();
    const tests::TemporaryDirectory sound;
    constexpr auto kAll = std::filesystem::copy_options::recursive |
                          std::filesystem::copy_options::overwrite_existing;
    std::filesystem::copy(store.directory.path, sound.path, kAll);
    std::mt19937 dice(1);
    const auto below = [&dice](std::uintmax_t bound) {
        return std::uniform_int_distribution<std::uintmax_t>(0, bound - 1)(dice);
    };
    int refusals = 0;
    for (int damage = 0; damage < kDamages; ++damage) {
        std::filesystem::copy(sound.path, store.directory.path, kAll);
        const std::uintmax_t size = std::filesystem::file_size(store.file);
        std::string bytes(1 + below(600), ' ');
        std::ranges::generate(bytes, [&] { return static_cast<char>(below(256)); });
        tests::overwrite(store.file, below(size), bytes);
        const bool isBackupDamaged = damage % 3 == 0;
        if (isBackupDamaged) {
            tests::overwrite(store.directory.path / "Backups/Hearthmark-2001-01-03.sqlite",
                             below(16), bytes);
        }
        const std::string message = store.launchMessage();
        if (message.empty()) {
            continue;  // where nothing was, or within a value
        }
        ++refusals;
        ASSERT_EQ(message.find("SELECT"), std::string::npos) << "the check says it, not the rows";
        const bool isNewestGood = store.backups->newestGood()->day == store.backups->all()[0].day;
        ASSERT_TRUE(isNewestGood || isBackupDamaged);
        const auto named = message.find("Backups/Hearthmark-2001-01-0" +
                                        std::to_string(isNewestGood ? 3 : 2) + ".sqlite");
        ASSERT_NE(named, std::string::npos) << message;
        const std::string damaged = bytesOf(store.file);
        ASSERT_EQ(tests::type(tests::commandIn(message)), 0) << message;
        ASSERT_EQ(store.launchMessage(), "");
        ASSERT_EQ(store.content(), contents[isNewestGood ? 2 : 1]);
        ASSERT_TRUE(store.isKept(damaged));
        std::filesystem::remove_all(store.directory.path / "Damaged");
    }
    EXPECT_GT(refusals, kDamages / 3);
    std::cout << kDamages << " damages, of which " << refusals << " needed a backup\n";
}

}  // namespace hearthmark::store
