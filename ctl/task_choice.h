// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "store/store_reader.h"

namespace hearthmark::ctl {

// Those whose names hold all the words, whatever their case and accents; all of them without words.
// What has no id is left out, since nothing can be done with it. Newest first.
std::vector<store::TaskEntry> tasksWithWords(std::vector<store::TaskEntry> tasks,
                                             const std::string& words);

// The one task that is meant by an id, by its whole name, or by words of its name. One that is done
// is meant only where no other is. Throws CommandError where none is meant, or more than one, which
// it lists.
store::TaskEntry chosenTask(const std::vector<store::TaskEntry>& tasks, const std::string& text);

// As a line of a list: the id, the name on one line, and whether it is done.
std::string taskLine(const store::TaskEntry& task);

// What a shell offers for those that are not done, newest first: the name on one line where
// chosenTask() knows the task by it and it can be typed, else the id.
std::vector<std::string> offeredNames(const std::vector<store::TaskEntry>& tasks);

}  // namespace hearthmark::ctl
