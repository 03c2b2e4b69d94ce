// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <stdexcept>

// NOLINTNEXTLINE(readability-identifier-naming): the library's
namespace CLI {
class App;
}

namespace hearthmark::ctl {

// What the process ends with; the manual page tells it.
enum class ExitStatus { done = 0, couldNot = 1, usage = 2, nothingRuns = 3 };

// What the line asks for that was typed.
using Command = std::function<ExitStatus()>;

// Thrown by a command for an argument that means nothing: ExitStatus::usage.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

// Thrown by a command that cannot be done, with a sentence for a person: ExitStatus::couldNot.
class CommandError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

// Each adds a command, or those that change something, to what can be typed, which puts what it
// does into `chosen` where it is.
void addStatus(CLI::App& line, Command& chosen);
void addTasks(CLI::App& line, Command& chosen);
void addHistory(CLI::App& line, Command& chosen);
void addExport(CLI::App& line, Command& chosen);
void addChanges(CLI::App& line, Command& chosen);

}  // namespace hearthmark::ctl
