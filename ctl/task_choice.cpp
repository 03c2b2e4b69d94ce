// SPDX-License-Identifier: MIT
#include "ctl/task_choice.h"

#include <algorithm>
#include <functional>
#include <map>

#include "base/folding.h"
#include "base/text.h"
#include "ctl/command.h"
#include "ctl/status_text.h"
#include "presentation/texts.h"

namespace hearthmark::ctl {

namespace {

using store::TaskEntry;

constexpr std::size_t kMostListed = 20;
// Bytes.
constexpr std::size_t kLongestOffered = 200;

std::string nameOf(const TaskEntry& task) {
    return presentation::orDash(task.name);
}

bool isOpen(const TaskEntry& task) {
    return !task.doneDate;
}

[[noreturn]] void refuse(const std::vector<TaskEntry>& found, const std::string& text) {
    std::string message = std::to_string(found.size()) + " tasks match \"" + onOneLine(text) +
                          "\"; say which by its id or more words:";
    for (std::size_t place = 0; place < std::min(found.size(), kMostListed); ++place) {
        message += '\n' + taskLine(found[place]);
    }
    if (found.size() > kMostListed) {
        message += "\nand " + std::to_string(found.size() - kMostListed) + " more.";
    }
    throw CommandError(message);
}

std::vector<TaskEntry> selected(const std::vector<TaskEntry>& tasks,
                                const std::function<bool(const TaskEntry&)>& condition) {
    std::vector<TaskEntry> found;
    std::ranges::copy_if(tasks, std::back_inserter(found), condition);
    return found;
}

}  // namespace

std::vector<TaskEntry> tasksWithWords(std::vector<TaskEntry> tasks, const std::string& words) {
    const std::vector<std::string> folded = base::foldedWords(words);
    std::erase_if(tasks, [&folded](const TaskEntry& task) {
        const std::string name = folded.empty() ? "" : base::folded(nameOf(task));
        return !task.id || !base::holdsAll(name, folded);
    });
    std::ranges::sort(tasks, [](const auto& a, const auto& b) { return store::isNewer(a, b); });
    return tasks;
}

TaskEntry chosenTask(const std::vector<TaskEntry>& tasks, const std::string& text) {
    if (const auto id = base::Uuid::fromText(text)) {
        const auto task = std::ranges::find(tasks, id, &TaskEntry::id);
        if (task != tasks.end()) {
            return *task;
        }
    }
    const std::vector<std::string> words = base::foldedWords(text);
    if (words.empty()) {
        throw UsageError("The name of the task is empty.");
    }
    std::vector<TaskEntry> found = tasksWithWords(tasks, text);
    if (std::ranges::any_of(found, isOpen)) {
        found = selected(found, isOpen);
    }
    // Words do not tell apart a name and a longer one.
    const auto isWhole = [&words](const TaskEntry& task) {
        return base::foldedWords(nameOf(task)) == words;
    };
    if (std::ranges::any_of(found, isWhole)) {
        found = selected(found, isWhole);
    }
    if (found.empty()) {
        throw CommandError("No task matches \"" + onOneLine(text) + "\".");
    }
    if (found.size() > 1) {
        refuse(found, text);
    }
    return found.front();
}

std::vector<std::string> offeredNames(const std::vector<TaskEntry>& tasks) {
    std::map<std::vector<std::string>, int> counts;
    const std::vector<TaskEntry> open = selected(tasksWithWords(tasks, ""), isOpen);
    for (const TaskEntry& task : open) {
        ++counts[base::foldedWords(nameOf(task))];
    }
    std::vector<std::string> offered;
    for (const TaskEntry& task : open) {
        const std::string name = onOneLine(std::string(base::trimmed(nameOf(task))));
        const std::vector<std::string> words = base::foldedWords(nameOf(task));
        // An option begins with a hyphen, and an id is taken for one.
        const bool canBeTyped = !words.empty() && name.size() <= kLongestOffered &&
                                !name.starts_with('-') && !base::Uuid::fromText(name) &&
                                base::foldedWords(name) == words;
        offered.push_back(canBeTyped && counts[words] == 1 ? name : task.id->text());
    }
    return offered;
}

std::string taskLine(const TaskEntry& task) {
    return (task.id ? task.id->text() : "-") + "  " + onOneLine(nameOf(task)) +
           (isOpen(task) ? "" : " (done)");
}

}  // namespace hearthmark::ctl
