// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "presentation/task_list_view_state.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// Finds the tasks that hold all words of a search, each of them somewhere in the name or in a note.
// The texts are folded once, and again only those of a task that has changed since. It is there
// only while a search is open: beside the texts it takes 0.2 KB for each task.
class TaskSearch {
 public:
    // To be called after each change of them or of their notes. Answers whether that may have
    // changed what is found.
    bool follow(const store::Tasks& tasks);

    // Answers whether they are others than before.
    bool setWords(std::string_view typed);

    // Without one every task is shown, and none is found.
    bool hasWords() const { return !words_.empty(); }

    std::size_t matchCount() const { return matchCount_; }

    // Null where the task does not match.
    std::shared_ptr<const TaskListViewState::Match> match(const store::Task& task) const;

 private:
    struct Texts {
        bool isOf(const store::Task& task) const;

        std::optional<base::Uuid> id;
        std::optional<std::string> name;
        // Held, so that its address does not come back.
        std::shared_ptr<const std::vector<const store::Note*>> notes;
        // The name and the notes, newest first, each on lines of its own. No word goes on in the
        // next line.
        std::string fold;
        // Of each note in the fold.
        std::vector<std::size_t> noteBegins;
        // In which it was among the tasks that were followed.
        int round = 0;
        std::shared_ptr<const TaskListViewState::Match> match;
    };

    static Texts textsOf(const store::Task& task);
    void count();
    void look(const store::Task& task, Texts& texts);
    std::optional<TaskListViewState::FoundText> foundLine(const Texts& texts) const;

    std::unordered_map<const store::Task*, Texts> texts_;
    std::vector<std::string> words_;
    std::size_t matchCount_ = 0;
    int round_ = 0;
};

}  // namespace hearthmark::presentation
