// SPDX-License-Identifier: MIT
#include "ui/list/task_list_model.h"

#include <algorithm>
#include <utility>

#include "ui/state/run_action.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using presentation::TaskListViewState;

enum class Section { running, nonRunning };

TaskListRow textRow(TaskListRow::Kind kind, Section section, const QString& text) {
    TaskListRow row;
    row.key = {.kind = static_cast<int>(kind), .id = {}, .ordinal = static_cast<int>(section)};
    row.text = text;
    return row;
}

void appendSection(std::vector<TaskListRow>& rows, Section section, const QString& header,
                   const QString& hint, bool isEmpty) {
    rows.push_back(textRow(TaskListRow::Kind::header, section, header));
    if (isEmpty) {
        rows.push_back(textRow(TaskListRow::Kind::hint, section, hint));
    }
}

template <class Item>
TaskListRow taskRow(const Item& item, RowKeys& keys) {
    TaskListRow row;
    row.key = keys.next(item.taskId, static_cast<int>(TaskListRow::Kind::task));
    row.text = toQString(item.taskName);
    row.timeSpent = toQString(item.timeSpent);
    row.isSelected = item.isSelected;
    row.onTap = item.onItemTapped;
    return row;
}

std::vector<IntervalRow> lines(
    const std::vector<TaskListViewState::RunningItemInterval>& intervals) {
    std::vector<IntervalRow> rows;
    rows.reserve(intervals.size());
    RowKeys keys;
    for (const TaskListViewState::RunningItemInterval& interval : intervals) {
        rows.push_back({.key = keys.next(interval.intervalId),
                        .timeSpent = toQString(interval.timeSpent),
                        .button = toQString(interval.button),
                        .progress = interval.progress,
                        .onButtonTap = interval.onButtonTap,
                        .onDelete = interval.onDeleteCommand});
    }
    return rows;
}

std::vector<TaskListRow> runningRows(const std::vector<TaskListViewState::RunningItem>& items,
                                     RowKeys& keys) {
    std::vector<TaskListRow> rows;
    appendSection(rows, Section::running, QObject::tr("Running"),
                  QObject::tr("No tasks in progress."), items.empty());
    for (const TaskListViewState::RunningItem& item : items) {
        TaskListRow& row = rows.emplace_back(taskRow(item, keys));
        row.lines = lines(item.intervalViewStates);
        // A running task is deleted by way of its newest running interval.
        if (!item.intervalViewStates.empty()) {
            row.onDelete = item.intervalViewStates.front().onDeleteCommand;
        }
    }
    return rows;
}

void appendNonRunningRows(std::vector<TaskListRow>& rows,
                          const livedata::SharedList<TaskListViewState::NonRunningItem>& items,
                          RowKeys& keys) {
    rows.reserve(rows.size() + items.size() + 2);
    appendSection(rows, Section::nonRunning, QObject::tr("Not running"),
                  QObject::tr("Add your first task by pressing the button below 👇"), items.empty());
    for (const TaskListViewState::NonRunningItem& item : items) {
        rows.emplace_back(taskRow(item, keys)).onDelete = item.onDeleteCommand;
    }
}

}  // namespace

const std::vector<RowRole<TaskListRow>>& TaskListRow::roles() {
    // The description, which the model makes, changes with the time.
    static const std::vector<RowRole<TaskListRow>> kRoles{
        role<&TaskListRow::timeSpent>("description"),
        kindRole<TaskListRow>(),
        role<&TaskListRow::text>("text"),
        role<&TaskListRow::timeSpent>("timeSpent"),
        role<&TaskListRow::isSelected>("isSelected"),
        {"intervalViewStates",
         [](const TaskListRow& row) { return QVariant::fromValue(row.intervalViewStates.get()); },
         &RowField<&TaskListRow::intervalViewStates>::differs}};
    return kRoles;
}

void TaskListRow::settle(TaskListRow* shown) {
    if (!lines) {
        return;
    }
    if (shown != nullptr && shown->intervalViewStates) {
        intervalViewStates = shown->intervalViewStates;
    } else {
        // Deleted later, since it may go while one of its own actions runs.
        intervalViewStates = {new IntervalListModel,
                              [](IntervalListModel* model) { model->deleteLater(); }};
    }
    intervalViewStates->update(std::move(*lines));
    lines.reset();
}

void TaskListModel::show(const TaskListViewState::View& state) {
    RowKeys keys;
    std::vector<TaskListRow> next = runningRows(state.runningItems, keys);
    std::size_t end = next.size();
    const int runningCount = static_cast<int>(state.runningItems.size());
    if (rowCount() == 0 || runningCount != runningCount_ ||
        !state.nonRunningItems.isSame(shownNonRunning_)) {
        appendNonRunningRows(next, state.nonRunningItems, keys);
        end = rows().size();
    }
    runningCount_ = runningCount;
    shownNonRunning_ = state.nonRunningItems;
    if (update(0, end, std::move(next))) {
        emit dataChanged(index(0), index(rowCount() - 1), {kDescriptionRole});
    }
}

QString TaskListModel::description(int row) const {
    const int firstSection = std::max(runningCount_, 1) + 1;
    const int taskCount = runningCount_ + static_cast<int>(shownNonRunning_.size());
    const int position = row < firstSection ? row : runningCount_ + row - firstSection;
    //: The time spent on a task, and its place in the list.
    return tr("%1, %2 of %3").arg(rowAt(row)->timeSpent).arg(position).arg(taskCount);
}

QVariant TaskListModel::data(const QModelIndex& index, int role) const {
    if (role == kDescriptionRole) {
        return isTask(index.row()) ? description(index.row()) : QString();
    }
    return RowListModel::data(index, role);
}

void TaskListModel::tap(int row) const {
    if (const TaskListRow* tapped = rowAt(row)) {
        run(tapped->onTap);
    }
}

void TaskListModel::deleteRow(int row) const {
    if (const TaskListRow* deleted = rowAt(row)) {
        run(deleted->onDelete);
    }
}

int TaskListModel::selectedRow() const {
    const auto selected = std::ranges::find(rows(), true, &TaskListRow::isSelected);
    return selected == rows().end() ? -1 : static_cast<int>(selected - rows().begin());
}

int TaskListModel::taskBefore(int row) const {
    for (int candidate = std::min(row, rowCount()) - 1; candidate >= 0; --candidate) {
        if (isTask(candidate)) {
            return candidate;
        }
    }
    return row;
}

int TaskListModel::taskAfter(int row) const {
    for (int candidate = std::max(row, -1) + 1; candidate < rowCount(); ++candidate) {
        if (isTask(candidate)) {
            return candidate;
        }
    }
    return row;
}

int TaskListModel::taskNearest(int row) const {
    for (const int candidate : {row, taskAfter(row), taskBefore(row)}) {
        if (isTask(candidate)) {
            return candidate;
        }
    }
    return -1;
}

bool TaskListModel::isTask(int row) const {
    const TaskListRow* found = rowAt(row);
    return found != nullptr && found->kind() == TaskListRow::Kind::task;
}

}  // namespace hearthmark::ui
