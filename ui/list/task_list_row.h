// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "livedata/block.h"
#include "presentation/task_list_view_state.h"
#include "ui/rows/interval_list_model.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// One line of the task list: a section's header, the text of an empty section, a task, or the
// header of a section that folds.
struct TaskListRow {
    // A task that is done is another row than before, so that the keyboard stays where it was.
    enum class Kind { header, hint, task, fold, doneTask };

    Kind kind() const { return static_cast<Kind>(key.kind); }
    bool isTask() const { return kind() == Kind::task || kind() == Kind::doneTask; }
    bool isMatch() const { return match != nullptr; }
    static const std::vector<RowRole<TaskListRow>>& roles();
    // The lines go on in the model that the view has of the task.
    void settle(TaskListRow* shown);

    // The id is a task's; the others have none, and are numbered by their section.
    RowKey key;
    QString text;  // the header, the hint or the task's name
    QString timeSpent;
    // Of a section that is folded, whether it holds the task that is.
    bool isSelected = false;
    // Of a section that folds.
    bool isUnfolded = false;
    // Null where a search does not find it, and without one.
    std::shared_ptr<const presentation::TaskListViewState::Match> match;
    // The running intervals of a running task; another row has none. Made from the lines when the
    // row is settled.
    std::shared_ptr<IntervalListModel> intervalViewStates;
    std::optional<std::vector<IntervalRow>> lines;
    // Absent for all that is no task.
    livedata::Action onTap;
    livedata::Action onDelete;
};

// The line of a note in which a search found something; null where there is none.
const presentation::TaskListViewState::FoundText* foundLineOf(const TaskListRow& row);

// What runs, whatever is searched for, with its header.
std::vector<TaskListRow> runningRows(const presentation::TaskListViewState::View& state,
                                     RowKeys& keys);

// What does not: with headers, and as far as a search finds it. What is done comes last, folded
// unless it is searched or was unfolded.
void appendOtherRows(std::vector<TaskListRow>& rows,
                     const presentation::TaskListViewState::View& state, bool isDoneUnfolded,
                     RowKeys& keys);

}  // namespace hearthmark::ui
