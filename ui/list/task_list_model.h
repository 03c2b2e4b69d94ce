// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

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
    enum class Kind { header, hint, task, fold };

    Kind kind() const { return static_cast<Kind>(key.kind); }
    bool isMatch() const { return match != nullptr; }
    static const std::vector<RowRole<TaskListRow>>& roles();
    // The lines go on in the model that the view has of the task.
    void settle(TaskListRow* shown);

    // The id is a task's; the others have none, and are numbered by their section.
    RowKey key;
    QString text;  // the header, the hint or the task's name
    QString timeSpent;
    bool isSelected = false;
    // Of a section that folds.
    bool isUnfolded = false;
    // Null where a search does not find it, and without one.
    std::shared_ptr<const presentation::TaskListViewState::Match> match;
    // The running intervals of a running task; another row has none. Made from the lines when the
    // row is settled.
    std::shared_ptr<IntervalListModel> intervalViewStates;
    std::optional<std::vector<IntervalRow>> lines;
    // Absent for headers and hints; a section that folds can be tapped.
    livedata::Action onTap;
    livedata::Action onDelete;
};

// All sections of the task list in one flat model, so that the view makes delegates only for what
// is visible and a task that starts or finishes moves instead of being made anew. What is done
// stands folded below the others; what a search finds of it is shown whether it is folded or not.
class TaskListModel : public HEARTHMARK_ROW_LIST_MODEL(TaskListRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the task list adapter")

 public:
    enum Kind { Header, Hint, Task, Fold };
    Q_ENUM(Kind)
    // For screen readers: of a task its time, and its place among all, of what folds whether it is.
    static constexpr int kDescriptionRole = Qt::UserRole;

    using RowListModel::RowListModel;

    void show(const presentation::TaskListViewState::View& state);

    QVariant data(const QModelIndex& index, int role) const override;

    // What the row's task can do; headers and hints do nothing.
    Q_INVOKABLE void tap(int row) const;
    Q_INVOKABLE void deleteRow(int row) const;

    // The first task that matches a search, or -1.
    Q_INVOKABLE int firstMatch() const;

    // -1 where no task is selected, and where the task is not shown.
    int selectedRow() const;
    int rowOf(const base::Uuid& taskId) const;

    // For the keyboard, which steps over headers and hints, but not over those that fold: the next
    // such row in a direction, or `row` where there is none; the one at a row or nearest to it, or
    // -1 where there are none.
    Q_INVOKABLE int stopBefore(int row) const;
    Q_INVOKABLE int stopAfter(int row) const;
    Q_INVOKABLE int stopNearest(int row) const;

 private:
    // From the state that is to be shown. Told whether what does not run is as it is shown.
    void renew(bool areOthersSame);
    void appendOthers(std::vector<TaskListRow>& rows, RowKeys& keys);
    // -1 where there is none.
    template <class Predicate>
    int firstRow(Predicate predicate) const;
    bool isStop(int row) const;
    QString description(int row) const;

    presentation::TaskListViewState::View shown_;
    bool isDoneUnfolded_ = false;
};

}  // namespace hearthmark::ui
