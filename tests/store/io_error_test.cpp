// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "store/persistent_container_factory.h"
#include "support/fault_vfs.h"
#include "support/random_operations.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

using tests::FaultVfs;

constexpr int kOperations = 12;
constexpr unsigned kSeed = 3;
constexpr int kNothingFailed = 3;

// All but the identifiers, which differ from run to run.
std::string contentOf(const std::filesystem::path& directory) {
    return tests::sql(directory / "Hearthmark.sqlite",
                      "SELECT pk, name, creationDate FROM Task ORDER BY pk;"
                      "SELECT pk, duration, maxDuration, task FROM Interval ORDER BY pk;"
                      "SELECT pk, state, started, visited, interval FROM RawIntervalState"
                      " ORDER BY pk;"
                      "SELECT pk, text, creationDate, task FROM Note ORDER BY pk");
}

// As the program does, which ends where the store fails.
template <class DidReturn>
void operate(const std::filesystem::path& directory, DidReturn didReturn) {
    const auto container =
        PersistentContainerFactory(directory, base::FatalErrorHandler()).makeContainer();
    tests::RandomOperations operations(
        container, kSeed, [](const std::string&) {}, tests::at(0));
    for (int each = 0; each < kOperations; ++each) {
        operations.doOne();
        didReturn();
    }
}

struct Outcome {
    int status;
    // How many operations had returned.
    std::size_t returned;
};

// In a process of its own.
Outcome operateWithFault(FaultVfs& vfs, const std::filesystem::path& directory, FaultVfs::Call call,
                         int after, FaultVfs::Fault fault) {
    std::array<int, 2> told{};
    if (::pipe(told.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        vfs.failOnce(call, after, fault);
        operate(directory, [&told] { return ::write(told[1], "x", 1); });
        ::_exit(vfs.hasFailed() ? EXIT_SUCCESS : kNothingFailed);
    }
    ::close(told[1]);
    std::array<char, kOperations + 1> bytes{};
    Outcome outcome{};
    for (ssize_t count = 1; count > 0;) {
        count = ::read(told[0], bytes.data(), bytes.size());
        outcome.returned += static_cast<std::size_t>(count);
    }
    ::close(told[0]);
    ::waitpid(child, &outcome.status, 0);
    return outcome;
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
    operate(untroubled.path, [&] { expected.push_back(contentOf(untroubled.path)); });

    int faults = 0;
    int ends = 0;
    for (const auto& [call, fault] : std::vector<std::pair<FaultVfs::Call, FaultVfs::Fault>>{
             {FaultVfs::Call::read, FaultVfs::Fault::ioError},
             {FaultVfs::Call::write, FaultVfs::Fault::ioError},
             {FaultVfs::Call::write, FaultVfs::Fault::outOfSpace},
             {FaultVfs::Call::write, FaultVfs::Fault::shortWrite},
             {FaultVfs::Call::sync, FaultVfs::Fault::ioError},
             {FaultVfs::Call::truncate, FaultVfs::Fault::ioError},
             {FaultVfs::Call::lock, FaultVfs::Fault::ioError}}) {
        for (int after = 0;; ++after) {
            const tests::TemporaryDirectory directory;
            copy(directory);
            const Outcome outcome = operateWithFault(vfs, directory.path, call, after, fault);
            const bool isOver = WIFEXITED(outcome.status) != 0;
            if (isOver && WEXITSTATUS(outcome.status) == kNothingFailed) {
                break;
            }
            ++faults;
            ends += isOver ? 0 : 1;
            ASSERT_TRUE(isOver ? WEXITSTATUS(outcome.status) == EXIT_SUCCESS
                               : WTERMSIG(outcome.status) == SIGABRT);
            tests::open(directory.path).reset();  // checks the file's integrity
            const std::string content = contentOf(directory.path);
            const bool isNext = !isOver && content == expected[outcome.returned + 1];
            ASSERT_TRUE(isNext || content == expected[outcome.returned])
                << "kind " << static_cast<int>(call) << '/' << static_cast<int>(fault)
                << " of fault, at call " << after << ", after " << outcome.returned
                << " operations";
        }
    }
    std::cout << faults << " faults, of which " << ends << " ended the program\n";
}

}  // namespace
}  // namespace hearthmark::store
