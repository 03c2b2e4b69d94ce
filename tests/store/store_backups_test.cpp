// SPDX-License-Identifier: MIT
#include "store/store_backups.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>

#include "objectstore/store_error.h"
#include "store/persistent_container_factory.h"
#include "support/fault_vfs.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

using namespace std::chrono_literals;
using tests::FaultVfs;

constexpr int kDamages = 300;

// The days since the reference date, whatever the time zone.
struct UtcCalendar final : base::Calendar {
    std::vector<base::Date> dayStarts(base::Date, int) const override { return {}; }
    std::optional<base::LocalTime> localTime(base::Date date) const override {
        const auto seconds =
            std::chrono::duration_cast<std::chrono::seconds>(date.sinceReferenceDate());
        const auto days = std::chrono::floor<std::chrono::days>(seconds);
        return base::LocalTime{base::kReferenceDay + days, seconds - days};
    }
};

struct BackedUpStore : tests::TestStore {
    void setDay(int day) const { clock->time = tests::at(0) + base::Seconds(day * 24h + 1h); }
    // A start on that day.
    void begin(int day) const {
        setDay(day);
        backups->keepDaily();
    }
    std::string content() const {
        return sql("SELECT id, name FROM Task; SELECT id, text FROM Note; SELECT id FROM Interval");
    }
    std::string names() const {
        std::string names;
        for (const StoreBackup& backup : backups->all()) {
            names += backup.file.stem().string().substr(sizeof "Hearthmark") + ' ';
        }
        return names;
    }
    void damage(const std::filesystem::path& name, std::streamoff offset,
                const std::string& bytes) const {
        std::fstream(directory.path / name, std::ios::in | std::ios::out | std::ios::binary)
                .seekp(offset)
            << bytes;
    }

    std::shared_ptr<const StoreBackups> backups =
        std::make_shared<StoreBackups>(directory.path, clock, std::make_shared<UtcCalendar>());
};

// As the program begins, in a process of its own. What it said before it ended; nothing where it
// goes on.
std::string launchMessage(const BackedUpStore& store) {
    const std::filesystem::path log = store.directory.path / "log";
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open(log.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600), STDERR_FILENO);
        PersistentContainerFactory(store.backups, base::FatalErrorHandler()).makeContainer();
        ::_exit(EXIT_SUCCESS);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    std::ifstream said(log);
    return WIFSIGNALED(status) ? std::string(std::istreambuf_iterator<char>(said), {}) : "";
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
    store.damage("Backups/Hearthmark-2001-05-31.sqlite", 0, "damaged");
    store.begin(460);
    EXPECT_NE(store.names().find("2001-04-30"), std::string::npos);
    struct stat status {};
    ::stat((store.directory.path / "Backups/Hearthmark-2002-04-06.sqlite").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
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
    store.close();
    store.backups->completeRestore();
    EXPECT_EQ(store.content(), after);
}

TEST(StoreBackups, OfAnOlderVersionAreComparedAsWhatTheyBecome) {
    BackedUpStore store;
    store.addTask("task");
    store.begin(1);
    const StoreBackup daily = *store.backups->newestGood();
    tests::sql(daily.file, "ALTER TABLE Task DROP COLUMN name");
    EXPECT_EQ(store.backups->changes(daily).tasks, (objectstore::RowDifference{0, 0, 1}));
    store.first<store::Task>().setName(std::nullopt);
    store.context().save();
    EXPECT_EQ(store.backups->changes(daily).tasks, objectstore::RowDifference());
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
    const auto below = [&dice](auto bound) {
        return std::uniform_int_distribution<decltype(bound)>(0, bound - 1)(dice);
    };
    int refusals = 0;
    for (int damage = 0; damage < kDamages; ++damage) {
        std::filesystem::copy(sound.path, store.directory.path, kAll);
        const auto size = static_cast<std::streamoff>(std::filesystem::file_size(store.file));
        std::string bytes(static_cast<std::size_t>(1 + below(600)), ' ');
        std::ranges::generate(bytes, [&] { return static_cast<char>(below(256)); });
        store.damage("Hearthmark.sqlite", below(size), bytes);
        const bool isBackupDamaged = damage % 3 == 0;
        if (isBackupDamaged) {
            store.damage("Backups/Hearthmark-2001-01-03.sqlite", below(16), bytes);
        }
        const std::string message = launchMessage(store);
        if (message.empty()) {
            continue;  // where nothing was, or within a value
        }
        ++refusals;
        const bool isNewestGood = store.backups->newestGood()->day == store.backups->all()[0].day;
        ASSERT_TRUE(isNewestGood || isBackupDamaged);
        const auto named = message.find("Backups/Hearthmark-2001-01-0" +
                                        std::to_string(isNewestGood ? 3 : 2) + ".sqlite");
        ASSERT_NE(named, std::string::npos) << message;
        ASSERT_EQ(std::system(message.substr(message.find("cd '")).c_str()), 0) << message;
        ASSERT_EQ(launchMessage(store), "");
        ASSERT_EQ(store.content(), contents[isNewestGood ? 2 : 1]);
    }
    EXPECT_GT(refusals, kDamages / 3);
    std::cout << kDamages << " damages, of which " << refusals << " needed a backup\n";
}

}  // namespace hearthmark::store
