// SPDX-License-Identifier: MIT
// What changes something: the program does it, and no other.
#include <CLI/CLI.hpp>
#include <chrono>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "base/clock.h"
#include "base/text.h"
#include "ctl/command.h"
#include "ctl/focus_bus.h"
#include "ctl/json.h"
#include "ctl/length.h"
#include "ctl/program_lock.h"
#include "ctl/status_text.h"
#include "ctl/store_access.h"
#include "ctl/task_choice.h"
#include "services/focus.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::ctl {

namespace {

struct ChangeOptions {
    StatusForm form() const { return isJson ? StatusForm::json : StatusForm::plain; }

    std::string task;
    // The name of a new task, or what a note says.
    std::string text;
    std::optional<std::string> length;
    bool isJson = false;
};

base::Seconds lengthOr(base::Seconds usual, const std::optional<std::string>& typed) {
    return typed ? lengthFrom(*typed) : usual;
}

store::TaskEntry taskOf(const ChangeOptions& options) {
    return chosenTask(openStore().tasks(), options.task);
}

std::string statusOf(const std::optional<FocusStatus>& focus, StatusForm form) {
    return statusLine(focus, base::SystemClock().now(), form);
}

// The plain line, for one that goes on or is a message.
std::string plainStatusOf(const std::optional<FocusStatus>& focus) {
    std::string line = statusOf(focus, StatusForm::plain);
    line.pop_back();
    return line;
}

// The plain line, or the JSON, on a line.
void print(const ChangeOptions& options, const std::string& line, const Json& json) {
    std::cout << (options.isJson ? json.dump() : line) << '\n';
}

ExitStatus add(const ChangeOptions& options) {
    const std::string name(base::trimmed(options.text));
    const std::string id = FocusBus().addTask(name);
    print(options, id + "  " + onOneLine(name), {{"taskId", id}, {"taskName", name}});
    return ExitStatus::done;
}

ExitStatus note(const ChangeOptions& options) {
    FocusBus bus;
    const store::TaskEntry task = taskOf(options);
    const std::string id = bus.addNote(task.id.value().text(), options.text);
    print(options, "Noted: " + taskLine(task),
          {{"noteId", id}, {"taskId", jsonOf(task.id)}, {"taskName", jsonOf(task.name)}});
    return ExitStatus::done;
}

ExitStatus start(const ChangeOptions& options) {
    const base::Seconds length = lengthOr(services::kShortFocus, options.length);
    const store::TaskEntry task = taskOf(options);
    FocusBus bus;
    const bool wasRunning = bus.isProgramRunning();
    try {
        bus.startFocus(task.id.value().text(), length);
    } catch (const BusError& error) {
        if (error.cause() != BusError::Cause::focusRunning) {
            throw;
        }
        throw CommandError((wasRunning ? "Nothing was started, since a focus runs: "
                                       : "Hearthmark was started, and goes on with what it had "
                                         "paused; nothing else was started: ") +
                           plainStatusOf(bus.running()));
    }
    std::cout << statusOf(bus.running(), options.form());
    return ExitStatus::done;
}

ExitStatus finish(const ChangeOptions& options) {
    FocusBus bus;
    // Afterwards nobody tells what it was.
    const FocusStatus focus = bus.running().value_or(FocusStatus());
    if (const std::string id = bus.finish(); id != focus.intervalId) {
        // Another one was started in between.
        print(options, "Finished: " + id, {{"intervalId", id}});
        return ExitStatus::done;
    }
    const base::Seconds spent = timeSpent(focus, base::SystemClock().now());
    print(options, "Finished: " + plainStatusOf(focus),
          {{"taskId", focus.taskId},
           {"taskName", jsonOf(std::optional(focus.taskName))},
           {"intervalId", focus.intervalId},
           {"spent", wholeSeconds(spent)},
           {"length", wholeSeconds(focus.length)}});
    return ExitStatus::done;
}

ExitStatus extend(const ChangeOptions& options) {
    FocusBus bus;
    bus.extend(lengthOr(services::kMoreFocus, options.length));
    std::cout << statusOf(bus.running(), options.form());
    return ExitStatus::done;
}

// What came too fast was not done, so it is asked for again a little later, for half a minute.
ExitStatus carryOutInTime(ExitStatus (*change)(const ChangeOptions&),
                          const ChangeOptions& options) {
    constexpr int kMostTries = 60;
    constexpr std::chrono::milliseconds kBetweenTries{500};
    for (int tried = 1;; ++tried) {
        try {
            return change(options);
        } catch (const BusError& error) {
            if (error.cause() != BusError::Cause::tooManyCalls || tried == kMostTries) {
                throw;
            }
        }
        std::this_thread::sleep_for(kBetweenTries);
    }
}

// Tells apart what the bus cannot know.
ExitStatus carryOut(ExitStatus (*change)(const ChangeOptions&), const ChangeOptions& options) {
    try {
        return carryOutInTime(change, options);
    } catch (const BusError& error) {
        if (error.cause() == BusError::Cause::nothingRuns) {
            std::cerr << "hearthmarkctl: " << error.what() << '\n';
            return ExitStatus::nothingRuns;
        }
        if (error.cause() == BusError::Cause::notRunning &&
            isProgramRunning(store::storeDirectory())) {
            throw CommandError("Hearthmark runs, but is not on this session bus.");
        }
        throw;
    }
}

}  // namespace

void addChanges(CLI::App& line, Command& chosen) {
    const auto options = std::make_shared<ChangeOptions>();
    const auto addCommand = [&line, &chosen, options](const char* name, const char* does,
                                                      ExitStatus (*change)(const ChangeOptions&)) {
        CLI::App* const command = line.add_subcommand(name, does);
        command->add_flag("--json", options->isJson, "Print JSON");
        command->callback([&chosen, options, change] {
            chosen = [options, change] { return carryOut(change, *options); };
        });
        return command;
    };
    const auto addTask = [options](CLI::App* command) {
        command->add_option("TASK", options->task, "Its id, or words of its name")->required();
        return command;
    };
    addCommand("add", "Add a task", add)
        ->add_option("NAME", options->text, "The name of the task")
        ->required();
    addTask(addCommand("start", "Start a focus, and Hearthmark where it does not run", start))
        ->add_option("LENGTH", options->length, "25 or 25m, 1h30m, 25:00; half an hour without");
    addCommand("finish", "Finish the focus that runs", finish);
    addCommand("extend", "Give the focus that runs more time", extend)
        ->add_option("LENGTH", options->length, "As of a start; five minutes without");
    addTask(addCommand("note", "Add a note to a task", note))
        ->add_option("TEXT", options->text, "What the note says")
        ->required();
}

}  // namespace hearthmark::ctl
