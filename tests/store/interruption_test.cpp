// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "base/calendar.h"
#include "objectstore/store_copy.h"
#include "store/hearthmark_model.h"
#include "store/note.h"
#include "store/persistent_container_factory.h"
#include "store/store_backups.h"
#include "support/child.h"
#include "support/fault_vfs.h"
#include "support/random_operations.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

using tests::contentOf;
using tests::FaultVfs;

// With it there is an import among the few operations of each process that fails.
constexpr unsigned kSeed = 9;
// Of the process that fails.
constexpr int kOperations = 12;
constexpr int kNothingFailed = 3;
// Before a kill; each is compared with.
constexpr int kMostOperations = 1000;
constexpr std::size_t kKills = 200;
// In seconds: half of them meet the opening of the store, the others the operations.
constexpr std::array<double, 2> kLatestKill{0.02, 0.5};

constexpr int kOperationsBeforeCut = 300;

TEST(Kills, LoseNoOperationThatReturnedAndKeepNoneInPart) {
    const tests::TemporaryDirectory untroubled;
    tests::RandomOperations random(tests::open(untroubled.path), kSeed);
    const std::hash<std::string> hash;
    std::vector<std::size_t> expected{hash(contentOf(untroubled.path))};
    const auto seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 dice(seed);
    std::size_t returned = 0;
    int whole = 0;
    for (std::size_t kill = 0; kill < kKills; ++kill) {
        const tests::TemporaryDirectory directory;
        tests::Child child([&directory](const auto& didReturn) {
            tests::operate(directory.path, kSeed, kMostOperations, didReturn);
            return ::pause();  // where the disk is that fast
        });
        std::this_thread::sleep_for(base::Seconds(
            std::uniform_real_distribution<>(0, kLatestKill.at(kill % kLatestKill.size()))(dice)));
        ::kill(child.id, SIGKILL);
        child.join();
        ASSERT_TRUE(WIFSIGNALED(child.status) && WTERMSIG(child.status) == SIGKILL);
        while (expected.size() < child.returned + 2) {
            random.doOne();
            expected.push_back(hash(contentOf(untroubled.path)));
        }
        tests::open(directory.path).reset();  // checks the file's integrity
        const std::size_t content = hash(contentOf(directory.path));
        const bool isNext = content != expected[child.returned];
        ASSERT_TRUE(!isNext || content == expected[child.returned + 1])
            << "kill " << kill << " after " << child.returned << " operations";
        returned += child.returned;
        whole += isNext ? 1 : 0;
    }
    std::cout << kKills << " kills, " << returned << " operations had returned and are there; "
              << whole << " more were under way and are there too, the others not at all"
              << std::endl;
}

TEST(IoErrors, EndTheProgramOrChangeNothingAndLoseNoOperationThatReturned) {
    FaultVfs vfs;
    const tests::TemporaryDirectory beginning;
    tests::open(beginning.path).reset();
    std::vector<std::string> expected{contentOf(beginning.path)};
    const auto copy = [&beginning](const tests::TemporaryDirectory& to) {
        std::filesystem::copy(beginning.path, to.path, std::filesystem::copy_options::recursive);
    };
    const tests::TemporaryDirectory untroubled;
    copy(untroubled);
    tests::operate(untroubled.path, kSeed, kOperations,
                   [&] { expected.push_back(contentOf(untroubled.path)); });

    int faults = 0;
    int ends = 0;
    for (const auto& [call, fault] : FaultVfs::kFaults) {
        for (int after = 0;; ++after) {
            const tests::TemporaryDirectory directory;
            copy(directory);
            tests::Child child([&, call = call, fault = fault](const auto& didReturn) {
                vfs.failOnce(call, after, fault);
                tests::operate(directory.path, kSeed, kOperations, didReturn);
                return vfs.hasFailed() ? EXIT_SUCCESS : kNothingFailed;
            });
            child.join();
            const bool isOver = WIFEXITED(child.status) != 0;
            if (isOver && WEXITSTATUS(child.status) == kNothingFailed) {
                break;
            }
            ++faults;
            ends += isOver ? 0 : 1;
            ASSERT_TRUE(isOver ? WEXITSTATUS(child.status) == EXIT_SUCCESS
                               : WTERMSIG(child.status) == SIGABRT);
            tests::open(directory.path).reset();  // checks the file's integrity
            const std::string content = contentOf(directory.path);
            const bool isNext = !isOver && content == expected[child.returned + 1];
            ASSERT_TRUE(isNext || content == expected[child.returned])
                << "kind " << static_cast<int>(call) << '/' << static_cast<int>(fault)
                << " of fault, at call " << after << ", after " << child.returned << " operations";
        }
    }
    std::cout << faults << " faults, of which " << ends << " ended the program\n";
}

TEST(IoErrors, AreNotTakenForDamage) {
    FaultVfs vfs;
    const tests::TemporaryDirectory directory;
    tests::operate(directory.path, kSeed, kOperationsBeforeCut, [] {});
    int after = 0;
    do {
        vfs.failOnce(FaultVfs::Call::read, after, FaultVfs::Fault::ioError);
        try {
            objectstore::checkStore(directory.path / "Hearthmark.sqlite", hearthmarkModel());
        } catch (const objectstore::StoreError& error) {
            ASSERT_NE(error.cause(), objectstore::StoreError::Cause::damaged)
                << error.what() << ", at read " << after;
        }
        ++after;
    } while (vfs.hasFailed());
    EXPECT_GT(after, 10);
}

// A cut between any two changes of the files, with what was not synced there, gone or torn.
TEST(PowerCut, LosesNoOperationThatReturnedAndKeepsNoneInPart) {
    FaultVfs vfs;
    const tests::TemporaryDirectory directory;
    std::vector<std::string> contents;
    {
        const auto container = tests::open(directory.path);
        vfs.record(directory.path);
        tests::RandomOperations operations(container, 1);
        contents.push_back(contentOf(directory.path));
        for (int returned = 1; returned <= kOperationsBeforeCut; ++returned) {
            operations.doOne();
            vfs.setReturned(returned);
            contents.push_back(contentOf(directory.path));
        }
    }
    vfs.stop();
    const std::size_t events = vfs.events().size();
    std::mt19937 dice(1);
    const char* const wanted = std::getenv("HEARTHMARK_POWER_CUTS");
    const int cuts = wanted != nullptr ? std::atoi(wanted) : 2000;
    int unreturned = 0;
    for (int cut = 0; cut < cuts; ++cut) {
        const tests::TemporaryDirectory after;
        const auto before = std::uniform_int_distribution<std::size_t>(0, events)(dice);
        for (const auto& [name, content] : vfs.imageAfterCut(before, dice)) {
            std::ofstream(after.path / name, std::ios::binary) << content;
        }
        const auto returned =
            static_cast<std::size_t>(before == 0 ? 0 : vfs.events()[before - 1].returned);
        tests::open(after.path).reset();  // checks the file's integrity
        const std::string content = contentOf(after.path);
        const bool isNext = returned < kOperationsBeforeCut && content == contents[returned + 1];
        unreturned += isNext && content != contents[returned] ? 1 : 0;
        ASSERT_TRUE(isNext || content == contents[returned])
            << "cut " << cut << " after " << before << " of " << events << " changes, by when "
            << returned << " operations had returned";
    }
    std::cout << cuts << " cuts among " << events << " changes of the files; in " << unreturned
              << " the operation under way was there, whole\n";
}

TEST(PowerCut, LeavesTheOldStoreOrTheNewOneWhileItIsReplaced) {
    FaultVfs vfs;
    tests::TestStore old;
    old.addTask("old");
    tests::TestStore other;
    other.addTask("new");
    const tests::TemporaryDirectory directory;
    const std::filesystem::path file = directory.path / "Hearthmark.sqlite";
    std::filesystem::copy(old.file, file);
    std::filesystem::copy(old.file.string() + "-wal", file.string() + "-wal");
    const std::filesystem::path draft = directory.path / "draft";
    objectstore::copyStore(other.file, draft, hearthmarkModel());
    vfs.record(directory.path);
    objectstore::replaceStore(file, draft);
    vfs.stop();
    EXPECT_EQ(tests::sql(file, "SELECT name FROM Task"), "new");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path), {}), 1);

    std::mt19937 dice(1);
    const std::size_t events = vfs.events().size();
    for (std::size_t cut = 0; cut < 10 * events; ++cut) {
        const tests::TemporaryDirectory after;
        for (const auto& [name, content] : vfs.imageAfterCut(cut / 10, dice)) {
            std::ofstream(after.path / name, std::ios::binary) << content;
        }
        tests::open(after.path).reset();  // checks the file's integrity
        ASSERT_EQ(tests::sql(after.path / "Hearthmark.sqlite", "SELECT name FROM Task"), "old");
    }
    const tests::TemporaryDirectory last;
    std::ofstream(last.path / "Hearthmark.sqlite", std::ios::binary)
        << vfs.imageAfterCut(events, dice)["Hearthmark.sqlite"];
    EXPECT_EQ(tests::sql(last.path / "Hearthmark.sqlite", "SELECT name FROM Task"), "old")
        << "before the move it needs no log";
}

}  // namespace
}  // namespace hearthmark::store
