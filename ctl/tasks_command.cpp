// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "ctl/command.h"
#include "ctl/json.h"
#include "ctl/store_access.h"
#include "ctl/task_choice.h"

namespace hearthmark::ctl {

namespace {

struct TasksOptions {
    std::vector<std::string> words;
    bool isDone = false;
    bool isAll = false;
    bool isJson = false;
    bool isOffered = false;
};

Json jsonOf(const store::TaskEntry& task) {
    return {{"id", ctl::jsonOf(task.id)},
            {"name", ctl::jsonOf(task.name)},
            {"created", ctl::jsonOf(task.creationDate)},
            {"done", ctl::jsonOf(task.doneDate)}};
}

ExitStatus listTasks(const TasksOptions& options) {
    if (options.isOffered) {
        for (const std::string& name : offeredNames(openStore().tasks())) {
            std::cout << name << '\n';
        }
        return ExitStatus::done;
    }
    std::string words;
    for (const std::string& each : options.words) {
        words += each + ' ';
    }
    std::vector<store::TaskEntry> tasks = tasksWithWords(openStore().tasks(), words);
    std::erase_if(tasks, [&options](const store::TaskEntry& task) {
        return !options.isAll && task.doneDate.has_value() != options.isDone;
    });
    if (options.isJson) {
        Json list = Json::array();
        for (const store::TaskEntry& task : tasks) {
            list.push_back(jsonOf(task));
        }
        std::cout << list.dump() << '\n';
    } else {
        for (const store::TaskEntry& task : tasks) {
            std::cout << taskLine(task) << '\n';
        }
    }
    return ExitStatus::done;
}

}  // namespace

void addTasks(CLI::App& line, Command& chosen) {
    const auto options = std::make_shared<TasksOptions>();
    CLI::App* command = line.add_subcommand("tasks", "List the tasks, newest first");
    command->add_option("WORDS", options->words, "List those whose names hold all of them");
    CLI::Option* done = command->add_flag("--done", options->isDone, "List those that are done");
    command->add_flag("--all", options->isAll, "List those that are done, too")->excludes(done);
    command->add_flag("--json", options->isJson, "Print JSON");
    command->add_flag("--offered", options->isOffered, "Print what shells offer for a TASK")
        ->excludes(done);
    command->callback([&chosen, options] { chosen = [options] { return listTasks(*options); }; });
}

}  // namespace hearthmark::ctl
