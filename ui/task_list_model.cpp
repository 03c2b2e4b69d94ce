// SPDX-License-Identifier: MIT
#include "ui/task_list_model.h"

#include <algorithm>
#include <utility>

#include "ui/assign_shown.h"
#include "ui/text_conversion.h"

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

std::shared_ptr<IntervalListModel> intervalList(
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
    // Deleted later, since it may go while one of its own actions runs.
    std::shared_ptr<IntervalListModel> list(new IntervalListModel,
                                            [](IntervalListModel* model) { model->deleteLater(); });
    list->update(std::move(rows));
    return list;
}

std::vector<TaskListRow> runningRows(const std::vector<TaskListViewState::RunningItem>& items,
                                     RowKeys& keys) {
    std::vector<TaskListRow> rows;
    appendSection(rows, Section::running, QObject::tr("Running"),
                  QObject::tr("No tasks in progress."), items.empty());
    for (const TaskListViewState::RunningItem& item : items) {
        TaskListRow& row = rows.emplace_back(taskRow(item, keys));
        row.intervalViewStates = intervalList(item.intervalViewStates);
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

QList<int> TaskListRow::assign(TaskListRow&& next) {
    QList<int> changed;
    assignShown(text, std::move(next.text), TaskListModel::TextRole, changed);
    assignShown(timeSpent, std::move(next.timeSpent), TaskListModel::TimeSpentRole, changed);
    if (changed.contains(TaskListModel::TimeSpentRole)) {
        changed.append(TaskListModel::DescriptionRole);
    }
    assignShown(isSelected, next.isSelected, TaskListModel::IsSelectedRole, changed);
    if (intervalViewStates && next.intervalViewStates) {
        intervalViewStates->update(std::move(*next.intervalViewStates).takeRows());
    } else {
        assignShown(intervalViewStates, std::move(next.intervalViewStates),
                    TaskListModel::IntervalViewStatesRole, changed);
    }
    onTap = std::move(next.onTap);
    onDelete = std::move(next.onDelete);
    return changed;
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
        emit dataChanged(index(0), index(rowCount() - 1), {DescriptionRole});
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
    const TaskListRow* row = rowAt(index.row());
    if (row == nullptr) {
        return {};
    }
    switch (role) {
        case KindRole:
            return row->key.kind;
        case TextRole:
            return row->text;
        case TimeSpentRole:
            return row->timeSpent;
        case DescriptionRole:
            return isTask(index.row()) ? description(index.row()) : QString();
        case IsSelectedRole:
            return row->isSelected;
        case IntervalViewStatesRole:
            return QVariant::fromValue(row->intervalViewStates.get());
        default:
            return {};
    }
}

QHash<int, QByteArray> TaskListModel::roleNames() const {
    return {{KindRole, "kind"},
            {TextRole, "text"},
            {TimeSpentRole, "timeSpent"},
            {DescriptionRole, "description"},
            {IsSelectedRole, "isSelected"},
            {IntervalViewStatesRole, "intervalViewStates"}};
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
