// SPDX-License-Identifier: MIT
#include "ui/list/task_list_model.h"

#include <algorithm>
#include <utility>

#include "ui/state/run_action.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

void TaskListModel::show(const presentation::TaskListViewState::View& state) {
    const bool areOthersSame = rowCount() > 0 &&
                               state.runningItems.size() == shown_.runningItems.size() &&
                               state.nonRunningItems.isSame(shown_.nonRunningItems);
    shown_ = state;
    renew(areOthersSame);
}

void TaskListModel::renew(bool areOthersSame) {
    RowKeys keys;
    std::vector<TaskListRow> next = runningRows(shown_, keys);
    std::size_t end = next.size();
    if (!areOthersSame) {
        appendOtherRows(next, shown_, isDoneUnfolded_, keys);
        end = rows().size();
        tasksUntil_.clear();
        for (int count = 0; const TaskListRow& row : next) {
            count += row.isTask() ? 1 : 0;
            tasksUntil_.push_back(count);
        }
    }
    if (update(0, end, std::move(next))) {
        emit dataChanged(index(0), index(rowCount() - 1), {kDescriptionRole});
    }
}

QString TaskListModel::description(int row) const {
    const TaskListRow& task = *rowAt(row);
    if (task.kind() == TaskListRow::Kind::fold) {
        return task.isUnfolded ? tr("unfolded") : tr("folded");
    }
    // A view may ask while rows come and go, and is told of all places after that.
    const int place = tasksUntil_[std::min(static_cast<std::size_t>(row), tasksUntil_.size() - 1)];
    //: The time spent on a task, and its place in the list.
    QString text = tr("%1, %2 of %3").arg(task.timeSpent).arg(place).arg(tasksUntil_.back());
    if (task.kind() == TaskListRow::Kind::doneTask) {
        text = tr("%1, done").arg(text);
    }
    if (const auto* line = foundLineOf(task)) {
        //: The time spent on a task and its place in the list, and the line of a note that matches.
        return tr("%1, in a note: %2").arg(text, toQString(line->text));
    }
    return task.isMatch() ? tr("%1, matches").arg(text) : text;
}

QVariant TaskListModel::data(const QModelIndex& index, int role) const {
    if (role == kDescriptionRole) {
        return isStop(index.row()) ? description(index.row()) : QString();
    }
    return RowListModel::data(index, role);
}

void TaskListModel::tap(int row) {
    const TaskListRow* tapped = rowAt(row);
    if (tapped != nullptr && tapped->kind() == TaskListRow::Kind::fold) {
        toggleFold();
    } else if (tapped != nullptr) {
        run(tapped->onTap);
    }
}

void TaskListModel::toggleFold() {
    isDoneUnfolded_ = !isDoneUnfolded_;
    renew(false);
    emit foldToggled();
}

void TaskListModel::deleteRow(int row) const {
    if (const TaskListRow* deleted = rowAt(row)) {
        run(deleted->onDelete);
    }
}

template <class Predicate>
int TaskListModel::firstRow(Predicate predicate) const {
    const auto first = std::ranges::find_if(rows(), predicate);
    return first == rows().end() ? -1 : static_cast<int>(first - rows().begin());
}

int TaskListModel::firstMatch() const {
    return firstRow(&TaskListRow::isMatch);
}

int TaskListModel::selectedRow() const {
    return firstRow(&TaskListRow::isSelected);
}

int TaskListModel::rowOf(const base::Uuid& taskId) const {
    return firstRow(
        [&taskId](const TaskListRow& row) { return row.isTask() && row.key.id == taskId; });
}

bool TaskListModel::isRunning(int row) const {
    const TaskListRow* found = rowAt(row);
    return found != nullptr && found->intervalViewStates != nullptr;
}

int TaskListModel::stopBefore(int row) const {
    for (int candidate = std::min(row, rowCount()) - 1; candidate >= 0; --candidate) {
        if (isStop(candidate)) {
            return candidate;
        }
    }
    return row;
}

int TaskListModel::stopAfter(int row) const {
    for (int candidate = std::max(row, -1) + 1; candidate < rowCount(); ++candidate) {
        if (isStop(candidate)) {
            return candidate;
        }
    }
    return row;
}

int TaskListModel::stopNearest(int row) const {
    for (const int candidate : {row, stopAfter(row), stopBefore(row)}) {
        if (isStop(candidate)) {
            return candidate;
        }
    }
    return -1;
}

bool TaskListModel::isStop(int row) const {
    const TaskListRow* found = rowAt(row);
    return found != nullptr && (found->isTask() || found->kind() == TaskListRow::Kind::fold);
}

}  // namespace hearthmark::ui
