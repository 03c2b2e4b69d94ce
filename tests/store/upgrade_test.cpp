// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <thread>

#include "base/calendar.h"
#include "store/persistent_container_factory.h"
#include "store/store_backups.h"
#include "support/child.h"
#include "support/fault_vfs.h"
#include "support/random_operations.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

using tests::FaultVfs;

constexpr unsigned kSeed = 9;
constexpr int kOperations = 12;
constexpr int kNothingFailed = 3;
constexpr int kKills = 60;
// In seconds.
constexpr double kLatestKill = 0.03;

// A store as the first version left it, of which one interval runs, and what becomes of it.
class OlderStore {
 public:
    OlderStore() {
        tests::operate(directory_.path, kSeed, kOperations, [] {});
        const auto container = tests::open(directory_.path);
        container->viewContext().objects<Task>().begin()->addIntervalsObject(
            *Interval::create({.creationDate = tests::at(1000),
                               .duration = base::Seconds(1),
                               .id = base::Uuid::random(),
                               .maxDuration = base::Seconds(0),
                               .state = IntervalState::running(tests::at(1000))},
                              container->viewContext()));
        container->viewContext().save();
        tests::sql(directory_.path / kFile, tests::kToFirstVersion);
        content_ = content(directory_.path / kFile);
    }

    void copyTo(const tests::TemporaryDirectory& directory) const {
        std::filesystem::copy(directory_.path, directory.path,
                              std::filesystem::copy_options::recursive);
    }

    // As the program begins.
    static void open(const std::filesystem::path& directory) {
        PersistentContainerFactory(
            std::make_shared<StoreBackups>(directory, std::make_shared<tests::FakeClock>(),
                                           std::make_shared<base::LocalCalendar>()),
            base::FatalErrorHandler(), [](const StoreNotice&) {})
            .makeContainer();
    }

    // Whether it is of the first version or of the second, whole, and opens as the second.
    void expectWhole(const std::filesystem::path& directory, bool hasBackup) const {
        ASSERT_EQ(content(directory / kFile), content_);
        const std::string version = tests::sql(directory / kFile, "PRAGMA user_version");
        ASSERT_TRUE(version == "1" || version == "2") << version;
        if (hasBackup && version == "2") {
            const std::filesystem::directory_iterator backups(directory / "Backups");
            ASSERT_TRUE(std::any_of(begin(backups), end(backups), [this](const auto& backup) {
                return backup.path().extension() == ".sqlite" && content(backup) == content_ &&
                       tests::sql(backup, "PRAGMA user_version") == "1";
            }));
        }
        open(directory);
        ASSERT_EQ(content(directory / kFile), content_);
        ASSERT_EQ(tests::sql(directory / kFile, "PRAGMA user_version"), "2");
        ASSERT_EQ(tests::sql(directory / kFile, "SELECT count(doneDate) FROM Task"), "0");
    }

    static constexpr auto kFile = "Hearthmark.sqlite";

 private:
    static std::string content(const std::filesystem::path& file) {
        return tests::sql(file,
                          "SELECT pk, id, creationDate, name FROM Task; SELECT * FROM Interval;"
                          "SELECT * FROM RawIntervalState; SELECT * FROM Note");
    }

    tests::TemporaryDirectory directory_;
    std::string content_;
};

TEST(Upgrade, LeavesOneVersionOrTheOtherWholeWhateverFails) {
    FaultVfs vfs;
    const OlderStore older;
    int ends = 0;
    int kills = 0;
    for (const auto& [call, fault] : FaultVfs::kFaults) {
        for (int after = 0;; ++after) {
            const tests::TemporaryDirectory directory;
            older.copyTo(directory);
            tests::Child child([&, call = call, fault = fault](const auto&) {
                vfs.failOnce(call, after, fault);
                OlderStore::open(directory.path);
                return vfs.hasFailed() ? EXIT_SUCCESS : kNothingFailed;
            });
            child.join();
            if (WIFEXITED(child.status) != 0 && WEXITSTATUS(child.status) == kNothingFailed) {
                break;
            }
            ends += WIFEXITED(child.status) != 0 ? 0 : 1;
            SCOPED_TRACE(after);
            ASSERT_NO_FATAL_FAILURE(older.expectWhole(directory.path, true));
        }
    }
    std::mt19937 dice(kSeed);
    while (kills < kKills) {
        const tests::TemporaryDirectory directory;
        older.copyTo(directory);
        tests::Child child([&directory](const auto&) {
            OlderStore::open(directory.path);
            return ::pause();
        });
        std::this_thread::sleep_for(
            base::Seconds(std::uniform_real_distribution<>(0, kLatestKill)(dice)));
        ::kill(child.id, SIGKILL);
        child.join();
        SCOPED_TRACE(++kills);
        ASSERT_NO_FATAL_FAILURE(older.expectWhole(directory.path, true));
    }
    const tests::TemporaryDirectory directory;
    older.copyTo(directory);
    vfs.record(directory.path);
    OlderStore::open(directory.path);
    vfs.stop();
    const std::size_t events = vfs.events().size();
    for (std::size_t cut = 0; cut <= events; ++cut) {
        const tests::TemporaryDirectory after;
        for (const auto& [name, content] : vfs.imageAfterCut(cut, dice)) {
            if (name.starts_with(OlderStore::kFile)) {
                std::ofstream(after.path / name, std::ios::binary) << content;
            }
        }
        SCOPED_TRACE(cut);
        ASSERT_NO_FATAL_FAILURE(older.expectWhole(after.path, false));
    }
    EXPECT_GT(ends, 100);
    EXPECT_GT(events, 10);
    std::cout << ends << " faults ended the program, " << kills << " kills, " << events
              << " cuts\n";
}

}  // namespace
}  // namespace hearthmark::store
