// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "base/date.h"
#include "ctl/bus_error.h"
#include "ctl/focus_status.h"

// The bus library's.
// NOLINTBEGIN(readability-identifier-naming)
struct sd_bus;
struct sd_bus_slot;
// NOLINTEND(readability-identifier-naming)

namespace hearthmark::ctl {

// The properties of the interface, of which a change names but some. Nothing runs where there is no
// interval.
struct ToldFocus {
    std::string taskId;
    std::string taskName;
    std::string intervalId;
    double start = 0;
    double spentBefore = 0;
    double length = 0;
};

struct BusCloser {
    void operator()(sd_bus* bus) const;
    void operator()(sd_bus_slot* slot) const;
};
using BusConnection = std::unique_ptr<sd_bus, BusCloser>;

// What the program is asked to do. Each call waits for the answer, for a bounded time, and throws
// BusError where nothing was done; but for startFocus() none starts the program.
class FocusBus {
 public:
    FocusBus();

    bool isProgramRunning();
    // Of the newest one.
    std::optional<FocusStatus> running();

    // Each returns the id of what was made, or finished.
    std::string startFocus(const std::string& taskId, base::Seconds length);
    std::string finish();
    std::string addTask(const std::string& name);
    std::string addNote(const std::string& taskId, const std::string& text);
    // Returns the new length.
    base::Seconds extend(base::Seconds by);

 private:
    BusConnection bus_;
};

// Follows what the program tells, without waiting: its owner polls the descriptor for the events,
// and calls process() then, and when the timeout is over.
class FocusWatch {
 public:
    // Unknown: it has not answered yet.
    enum class Program { unknown, absent, present };

    // Begins to connect. Throws BusError where there is no bus.
    FocusWatch();
    FocusWatch(const FocusWatch&) = delete;
    FocusWatch& operator=(const FocusWatch&) = delete;

    int descriptor() const;
    short events() const;
    // In time that the machine is awake, since it was started; absent where nothing is awaited.
    std::optional<std::chrono::microseconds> timeout() const;

    // Takes in all that has come. Throws BusError where the bus went away.
    void process();

    Program program() const { return program_; }
    // Of the newest one, where the program is present.
    std::optional<FocusStatus> running() const;

 private:
    friend class WatchHandlers;

    void askForAll();

    ToldFocus told_;
    Program program_ = Program::unknown;
    bool mustAsk_ = false;
    BusConnection bus_;
    // The question that is not answered yet, for which nobody waits any more when it goes.
    std::unique_ptr<sd_bus_slot, BusCloser> question_;
};

}  // namespace hearthmark::ctl
