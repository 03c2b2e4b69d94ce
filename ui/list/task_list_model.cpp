// SPDX-License-Identifier: MIT
#include "ui/list/task_list_model.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "ui/state/run_action.h"
#include "ui/text/marked_text.h"
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

template <class Item>
TaskListRow taskRow(const Item& item, RowKeys& keys) {
    TaskListRow row;
    row.key = keys.next(item.taskId, static_cast<int>(TaskListRow::Kind::task));
    row.text = toQString(item.taskName);
    row.timeSpent = toQString(item.timeSpent);
    row.isSelected = item.isSelected;
    row.onTap = item.onItemTapped;
    row.match = item.match;
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

// What stands in place of a section's tasks where none is shown.
QString hintOf(Section section, bool isEmpty) {
    if (!isEmpty) {
        return QObject::tr("No matches");
    }
    return section == Section::running
               ? QObject::tr("No tasks in progress.")
               : QObject::tr("Add your first task by pressing the button below 👇");
}

// Answers how many of the items are shown.
template <class Items, class IsShown, class Fill>
int appendSection(std::vector<TaskListRow>& rows, Section section, const QString& header,
                  const Items& items, RowKeys& keys, const IsShown& isShown, const Fill& fill) {
    rows.push_back(textRow(TaskListRow::Kind::header, section, header));
    const std::size_t first = rows.size();
    for (const auto& item : items) {
        if (isShown(item)) {
            fill(rows.emplace_back(taskRow(item, keys)), item);
        }
    }
    const std::size_t count = rows.size() - first;
    if (count == 0) {
        rows.push_back(textRow(TaskListRow::Kind::hint, section, hintOf(section, items.empty())));
    }
    return static_cast<int>(count);
}

int appendRunning(std::vector<TaskListRow>& rows,
                  const std::vector<TaskListViewState::RunningItem>& items, RowKeys& keys) {
    return appendSection(
        rows, Section::running, QObject::tr("Running"), items, keys,
        // Whatever is searched for.
        [](const auto& /*item*/) { return true; },
        [](TaskListRow& row, const TaskListViewState::RunningItem& item) {
            row.lines = lines(item.intervalViewStates);
            // A running task is deleted by way of its newest running interval.
            if (!item.intervalViewStates.empty()) {
                row.onDelete = item.intervalViewStates.front().onDeleteCommand;
            }
        });
}

int appendNonRunning(std::vector<TaskListRow>& rows, const TaskListViewState::View& state,
                     RowKeys& keys) {
    rows.reserve(rows.size() + state.nonRunningItems.size() + 2);
    return appendSection(
        rows, Section::nonRunning, QObject::tr("Not running"), state.nonRunningItems, keys,
        [isAll = !state.matchCount](const auto& item) { return isAll || item.match; },
        [](TaskListRow& row, const TaskListViewState::NonRunningItem& item) {
            row.onDelete = item.onDeleteCommand;
        });
}

const TaskListViewState::FoundText* foundLineOf(const TaskListRow& row) {
    return row.match && row.match->note ? &*row.match->note : nullptr;
}

QVariant markedName(const TaskListRow& row) {
    return row.match ? markedText(row.match->name.text, row.match->name.marked) : QString();
}

QVariant foundLine(const TaskListRow& row) {
    const auto* line = foundLineOf(row);
    return line != nullptr ? markedText(line->text, line->marked) : QString();
}

bool isFoundOtherwise(const TaskListRow& a, const TaskListRow& b) {
    return a.match != b.match && (!a.match || !b.match || *a.match != *b.match);
}

}  // namespace

const std::vector<RowRole<TaskListRow>>& TaskListRow::roles() {
    // The description, which the model makes, changes with the time and with what is found.
    static const std::vector<RowRole<TaskListRow>> kRoles{
        {"description", &RowField<&TaskListRow::timeSpent>::value,
         [](const TaskListRow& a, const TaskListRow& b) {
             return a.timeSpent != b.timeSpent || isFoundOtherwise(a, b);
         }},
        kindRole<TaskListRow>(),
        role<&TaskListRow::text>("text"),
        role<&TaskListRow::timeSpent>("timeSpent"),
        role<&TaskListRow::isSelected>("isSelected"),
        {"intervalViewStates",
         [](const TaskListRow& row) { return QVariant::fromValue(row.intervalViewStates.get()); },
         &RowField<&TaskListRow::intervalViewStates>::differs},
        // Made for the few rows that are seen.
        {"markedName", &markedName, &isFoundOtherwise},
        {"foundLine", &foundLine, &isFoundOtherwise}};
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
    std::vector<TaskListRow> next;
    auto& [runningCount, nonRunningCount] = taskCounts_;
    const int shownRunning =
        std::exchange(runningCount, appendRunning(next, state.runningItems, keys));
    std::size_t end = next.size();
    if (rowCount() == 0 || runningCount != shownRunning ||
        !state.nonRunningItems.isSame(shownNonRunning_)) {
        nonRunningCount = appendNonRunning(next, state, keys);
        end = rows().size();
    }
    shownNonRunning_ = state.nonRunningItems;
    if (update(0, end, std::move(next))) {
        emit dataChanged(index(0), index(rowCount() - 1), {kDescriptionRole});
    }
}

QString TaskListModel::description(int row) const {
    int position = row;
    int tasksAbove = 0;
    for (const int count : taskCounts_) {
        // Each with its header, and its hint where there are no tasks.
        const int rowsOfSection = 1 + std::max(count, 1);
        if (position < rowsOfSection) {
            break;
        }
        position -= rowsOfSection;
        tasksAbove += count;
    }
    const TaskListRow& task = *rowAt(row);
    const int taskCount = std::accumulate(taskCounts_.begin(), taskCounts_.end(), 0);
    //: The time spent on a task, and its place in the list.
    const QString place =
        tr("%1, %2 of %3").arg(task.timeSpent).arg(tasksAbove + position).arg(taskCount);
    const auto* line = foundLineOf(task);
    //: The time spent on a task and its place in the list, and the line of a note that matches.
    return line != nullptr ? tr("%1, in a note: %2").arg(place, toQString(line->text)) : place;
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
    return firstRow([&taskId](const TaskListRow& row) {
        return row.kind() == TaskListRow::Kind::task && row.key.id == taskId;
    });
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
