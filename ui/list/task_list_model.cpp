// SPDX-License-Identifier: MIT
#include "ui/list/task_list_model.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "ui/state/run_action.h"
#include "ui/text/marked_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using presentation::TaskListViewState;

enum class Section { running, nonRunning, done };

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

void appendSection(std::vector<TaskListRow>& rows, Section section, const QString& header,
                   const QString& hint) {
    rows.push_back(textRow(TaskListRow::Kind::header, section, header));
    if (!hint.isEmpty()) {
        rows.push_back(textRow(TaskListRow::Kind::hint, section, hint));
    }
}

// Whatever is searched for.
std::vector<TaskListRow> runningRows(const std::vector<TaskListViewState::RunningItem>& items,
                                     RowKeys& keys) {
    std::vector<TaskListRow> rows;
    appendSection(rows, Section::running, QObject::tr("Running"),
                  items.empty() ? QObject::tr("No tasks in progress.") : QString());
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

using NonRunningItems = std::vector<const TaskListViewState::NonRunningItem*>;

void appendRows(std::vector<TaskListRow>& rows, const NonRunningItems& items, RowKeys& keys) {
    for (const TaskListViewState::NonRunningItem* item : items) {
        rows.emplace_back(taskRow(*item, keys)).onDelete = item->onDeleteCommand;
    }
}

QString hintOf(const TaskListViewState::View& state) {
    if (state.nonRunningItems.empty()) {
        return QObject::tr("Add your first task by pressing the button below 👇");
    }
    return state.matchCount == 0U ? QObject::tr("No matches") : QString();
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
             return a.timeSpent != b.timeSpent || a.isUnfolded != b.isUnfolded ||
                    isFoundOtherwise(a, b);
         }},
        kindRole<TaskListRow>(),
        role<&TaskListRow::text>("text"),
        role<&TaskListRow::timeSpent>("timeSpent"),
        role<&TaskListRow::isSelected>("isSelected"),
        role<&TaskListRow::isUnfolded>("isUnfolded"),
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
    const bool areOthersSame = rowCount() > 0 &&
                               state.runningItems.size() == shown_.runningItems.size() &&
                               state.nonRunningItems.isSame(shown_.nonRunningItems);
    shown_ = state;
    renew(areOthersSame);
}

void TaskListModel::renew(bool areOthersSame) {
    RowKeys keys;
    std::vector<TaskListRow> next = runningRows(shown_.runningItems, keys);
    std::size_t end = next.size();
    if (!areOthersSame) {
        appendOthers(next, keys);
        end = rows().size();
    }
    if (update(0, end, std::move(next))) {
        emit dataChanged(index(0), index(rowCount() - 1), {kDescriptionRole});
    }
}

void TaskListModel::appendOthers(std::vector<TaskListRow>& rows, RowKeys& keys) {
    rows.reserve(rows.size() + shown_.nonRunningItems.size() + 3);
    const bool isSearch = shown_.matchCount.has_value();
    NonRunningItems toDo;
    NonRunningItems done;
    for (const TaskListViewState::NonRunningItem& item : shown_.nonRunningItems) {
        if (!isSearch || item.match) {
            (item.doneDate ? done : toDo).push_back(&item);
        }
    }
    appendSection(rows, Section::nonRunning, tr("Not running"),
                  toDo.empty() ? hintOf(shown_) : QString());
    appendRows(rows, toDo, keys);
    if (done.empty()) {
        return;
    }
    //: The heading of what is done, with how many tasks that are.
    TaskListRow& fold = rows.emplace_back(
        textRow(TaskListRow::Kind::fold, Section::done, tr("Done (%L1)").arg(done.size())));
    fold.isUnfolded = isDoneUnfolded_ || isSearch;
    if (!isSearch) {
        fold.onTap = livedata::makeAction([this] {
            isDoneUnfolded_ = !isDoneUnfolded_;
            renew(false);
        });
    }
    if (fold.isUnfolded) {
        // What was done last comes first.
        std::ranges::stable_sort(done, std::ranges::greater(),
                                 &TaskListViewState::NonRunningItem::doneDate);
        appendRows(rows, done, keys);
    }
}

QString TaskListModel::description(int row) const {
    const TaskListRow& task = *rowAt(row);
    if (task.kind() == TaskListRow::Kind::fold) {
        return task.isUnfolded ? tr("unfolded") : tr("folded");
    }
    const auto tasksUntil = [this](int end) {
        return std::ranges::count(rows().begin(), rows().begin() + end, TaskListRow::Kind::task,
                                  &TaskListRow::kind);
    };
    //: The time spent on a task, and its place in the list.
    const QString place =
        tr("%1, %2 of %3").arg(task.timeSpent).arg(tasksUntil(row + 1)).arg(tasksUntil(rowCount()));
    const auto* line = foundLineOf(task);
    //: The time spent on a task and its place in the list, and the line of a note that matches.
    return line != nullptr ? tr("%1, in a note: %2").arg(place, toQString(line->text)) : place;
}

QVariant TaskListModel::data(const QModelIndex& index, int role) const {
    if (role == kDescriptionRole) {
        return isStop(index.row()) ? description(index.row()) : QString();
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
    return found != nullptr &&
           (found->kind() == TaskListRow::Kind::task || found->kind() == TaskListRow::Kind::fold);
}

}  // namespace hearthmark::ui
