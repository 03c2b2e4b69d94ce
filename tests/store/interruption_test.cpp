// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
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

// While an older store is opened.
constexpr int kKillsOfUpgrades = 60;
constexpr double kLatestKillOfUpgrade = 0.03;

constexpr std::size_t kSector = 512;
constexpr int kOperationsBeforeCut = 300;

constexpr std::array<std::pair<FaultVfs::Call, FaultVfs::Fault>, 7> kFaults{
    {{FaultVfs::Call::read, FaultVfs::Fault::ioError},
     {FaultVfs::Call::write, FaultVfs::Fault::ioError},
     {FaultVfs::Call::write, FaultVfs::Fault::outOfSpace},
     {FaultVfs::Call::write, FaultVfs::Fault::shortWrite},
     {FaultVfs::Call::sync, FaultVfs::Fault::ioError},
     {FaultVfs::Call::truncate, FaultVfs::Fault::ioError},
     {FaultVfs::Call::lock, FaultVfs::Fault::ioError}}};

// As the program does, which ends where the store fails.
void operate(const std::filesystem::path& directory, int operations,
             const std::function<void()>& didReturn) {
    tests::RandomOperations random(
        PersistentContainerFactory(directory, base::FatalErrorHandler()).makeContainer(), kSeed);
    for (int each = 0; each < operations; ++each) {
        random.doOne();
        didReturn();
    }
}

// A process of its own that operates.
class Child {
 public:
    // Does the action there, which is given what it tells each operation that returned.
    explicit Child(const std::function<int(const std::function<void()>&)>& act) {
        if (::pipe(told_.data()) != 0) {
            throw std::runtime_error("no pipe");
        }
        id = ::fork();
        if (id == 0) {
            ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
            ::_exit(act([this] {
                if (::write(told_[1], "x", 1) != 1) {
                    std::abort();
                }
            }));
        }
        ::close(told_[1]);
    }

    // Waits for its end. Sets how many operations had returned and the status.
    void join() {
        std::array<char, 1000> bytes{};
        for (ssize_t count = 1; count > 0; returned += static_cast<std::size_t>(count)) {
            count = ::read(told_[0], bytes.data(), bytes.size());
        }
        ::close(told_[0]);
        ::waitpid(id, &status, 0);
    }

    pid_t id = 0;
    std::size_t returned = 0;
    int status = 0;

 private:
    std::array<int, 2> told_{};
};

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
        Child child([&directory](const auto& didReturn) {
            operate(directory.path, kMostOperations, didReturn);
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
    operate(untroubled.path, kOperations, [&] { expected.push_back(contentOf(untroubled.path)); });

    int faults = 0;
    int ends = 0;
    for (const auto& [call, fault] : kFaults) {
        for (int after = 0;; ++after) {
            const tests::TemporaryDirectory directory;
            copy(directory);
            Child child([&, call = call, fault = fault](const auto& didReturn) {
                vfs.failOnce(call, after, fault);
                operate(directory.path, kOperations, didReturn);
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
    operate(directory.path, kOperationsBeforeCut, [] {});
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

void writeAt(std::string& content, sqlite3_int64 offset, const std::string& bytes) {
    const auto begin = static_cast<std::size_t>(offset);
    content.resize(std::max(content.size(), begin + bytes.size()));
    content.replace(begin, bytes.size(), bytes);
}

// The files after a power cut that came after so many events. What was synced is there; of each
// later write all, nothing or some sectors.
FaultVfs::Image imageAfterCut(const FaultVfs& vfs, std::size_t events, std::mt19937& dice) {
    std::map<std::string, std::size_t> synced;
    for (std::size_t each = 0; each < events; ++each) {
        if (vfs.events()[each].kind == FaultVfs::Event::Kind::sync) {
            synced[vfs.events()[each].file] = each;
        }
    }
    const auto chance = [&dice](int percent) {
        return std::uniform_int_distribution<>(0, 99)(dice) < percent;
    };
    FaultVfs::Image image = vfs.beginning();
    for (std::size_t each = 0; each < events; ++each) {
        const FaultVfs::Event& event = vfs.events()[each];
        const auto last = synced.find(event.file);
        const bool isSynced = last != synced.end() && each < last->second;
        // What was not synced is there, or is not, or in part.
        if (!isSynced && chance(33)) {
            continue;
        }
        std::string& content = image[event.file];
        if (event.kind == FaultVfs::Event::Kind::truncate) {
            content.resize(static_cast<std::size_t>(event.offset));
        } else if (event.kind == FaultVfs::Event::Kind::remove) {
            image.erase(event.file);
        } else if (event.kind == FaultVfs::Event::Kind::write) {
            const bool isTorn = !isSynced && chance(50);
            for (std::size_t begin = 0; begin < event.bytes.size(); begin += kSector) {
                if (!isTorn || chance(50)) {
                    writeAt(content, event.offset + static_cast<sqlite3_int64>(begin),
                            event.bytes.substr(begin, kSector));
                }
            }
        }
    }
    return image;
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
        for (const auto& [name, content] : imageAfterCut(vfs, before, dice)) {
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
        FaultVfs::Image image = imageAfterCut(vfs, cut / 10, dice);
        for (const auto& [name, content] : image) {
            std::ofstream(after.path / name, std::ios::binary) << content;
        }
        tests::open(after.path).reset();  // checks the file's integrity
        ASSERT_EQ(tests::sql(after.path / "Hearthmark.sqlite", "SELECT name FROM Task"), "old");
    }
    const tests::TemporaryDirectory last;
    std::ofstream(last.path / "Hearthmark.sqlite", std::ios::binary)
        << imageAfterCut(vfs, events, dice)["Hearthmark.sqlite"];
    EXPECT_EQ(tests::sql(last.path / "Hearthmark.sqlite", "SELECT name FROM Task"), "old")
        << "before the move it needs no log";
}

// A store as the first version left it, of which one interval runs, and what becomes of it.
class OlderStore {
 public:
    OlderStore() {
        operate(directory_.path, kOperations, [] {});
        const auto container = tests::open(directory_.path);
        container->viewContext().objects<Task>().begin()->addIntervalsObject(
            *Interval::create({.creationDate = tests::at(1000),
                               .duration = base::Seconds(1),
                               .id = base::Uuid::random(),
                               .maxDuration = base::Seconds(0),
                               .state = IntervalState::running(tests::at(1000))},
                              container->viewContext()));
        container->viewContext().save();
        tests::sql(directory_.path / kFile,
                   "PRAGMA user_version = 1; ALTER TABLE Task DROP COLUMN doneDate");
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
    for (const auto& [call, fault] : kFaults) {
        for (int after = 0;; ++after) {
            const tests::TemporaryDirectory directory;
            older.copyTo(directory);
            Child child([&, call = call, fault = fault](const auto&) {
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
    while (kills < kKillsOfUpgrades) {
        const tests::TemporaryDirectory directory;
        older.copyTo(directory);
        Child child([&directory](const auto&) {
            OlderStore::open(directory.path);
            return ::pause();
        });
        std::this_thread::sleep_for(
            base::Seconds(std::uniform_real_distribution<>(0, kLatestKillOfUpgrade)(dice)));
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
        for (const auto& [name, content] : imageAfterCut(vfs, cut, dice)) {
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
