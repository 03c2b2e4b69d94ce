// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <vector>

#include "presentation/task_list_view_state.h"
#include "ui/list/task_list_row.h"

namespace hearthmark::ui {

// All sections of the task list in one flat model, so that the view makes delegates only for what
// is visible and a task that starts or finishes moves instead of being made anew. What is done
// stands folded below the others; what a search finds of it is shown whether it is folded or not.
class TaskListModel : public HEARTHMARK_ROW_LIST_MODEL(TaskListRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the task list adapter")

 public:
    enum Kind { Header, Hint, Task, Fold, DoneTask };
    Q_ENUM(Kind)
    // For screen readers: of a task its time, its place among all, and whether it is done and
    // found; of what folds whether it is.
    static constexpr int kDescriptionRole = Qt::UserRole;

    using RowListModel::RowListModel;

    void show(const presentation::TaskListViewState::View& state);

    QVariant data(const QModelIndex& index, int role) const override;

    // What the row's task can do; headers and hints do nothing, and what folds folds.
    Q_INVOKABLE void tap(int row);
    Q_INVOKABLE void deleteRow(int row) const;

    // The first task that matches a search, or -1.
    Q_INVOKABLE int firstMatch() const;

    // Of the selected task, or of the heading that it is folded under; -1 where none is selected,
    // or a search hides it.
    int selectedRow() const;
    // -1 where it is not shown.
    int rowOf(const base::Uuid& taskId) const;
    bool isRunning(int row) const;

    // For the keyboard, which steps over headers and hints, but not over those that fold: the next
    // such row in a direction, or `row` where there is none; the one at a row or nearest to it, or
    // -1 where there are none.
    Q_INVOKABLE int stopBefore(int row) const;
    Q_INVOKABLE int stopAfter(int row) const;
    Q_INVOKABLE int stopNearest(int row) const;

 signals:
    void foldToggled();

 private:
    // From the state that is to be shown. Told whether what does not run is as it is shown.
    void renew(bool areOthersSame);
    void toggleFold();
    // -1 where there is none.
    template <class Predicate>
    int firstRow(Predicate predicate) const;
    bool isStop(int row) const;
    QString description(int row) const;

    presentation::TaskListViewState::View shown_;
    bool isDoneUnfolded_ = false;
    // Up to each row and with it.
    std::vector<int> tasksUntil_;
};

}  // namespace hearthmark::ui
