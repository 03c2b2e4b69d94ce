// SPDX-License-Identifier: MIT
#include "ui/list/task_list_row.h"

#include <algorithm>
#include <functional>
#include <utility>

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
TaskListRow taskRow(const Item& item, TaskListRow::Kind kind, RowKeys& keys) {
    TaskListRow row;
    row.key = keys.next(item.taskId, static_cast<int>(kind));
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

using NonRunningItems = std::vector<const TaskListViewState::NonRunningItem*>;

void appendRows(std::vector<TaskListRow>& rows, const NonRunningItems& items, RowKeys& keys) {
    for (const TaskListViewState::NonRunningItem* item : items) {
        const auto kind = item->doneDate ? TaskListRow::Kind::doneTask : TaskListRow::Kind::task;
        rows.emplace_back(taskRow(*item, kind, keys)).onDelete = item->onDeleteCommand;
    }
}

QString hintOf(const TaskListViewState::View& state) {
    if (state.nonRunningItems.empty()) {
        return QObject::tr("Add your first task by pressing the button below 👇");
    }
    return state.matchCount == 0U ? QObject::tr("No matches") : QString();
}

QVariant markedName(const TaskListRow& row) {
    const bool isMarked = row.match && !row.match->name.marked.empty();
    return isMarked ? markedText(row.match->name.text, row.match->name.marked) : QString();
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

const TaskListViewState::FoundText* foundLineOf(const TaskListRow& row) {
    return row.match && row.match->note ? &*row.match->note : nullptr;
}

std::vector<TaskListRow> runningRows(const TaskListViewState::View& state, RowKeys& keys) {
    const std::vector<TaskListViewState::RunningItem>& items = state.runningItems;
    std::vector<TaskListRow> rows;
    appendSection(rows, Section::running, QObject::tr("Running"),
                  items.empty() ? QObject::tr("No tasks in progress.") : QString());
    for (const TaskListViewState::RunningItem& item : items) {
        TaskListRow& row = rows.emplace_back(taskRow(item, TaskListRow::Kind::task, keys));
        row.lines = lines(item.intervalViewStates);
        // A running task is deleted by way of its newest running interval.
        if (!item.intervalViewStates.empty()) {
            row.onDelete = item.intervalViewStates.front().onDeleteCommand;
        }
    }
    return rows;
}

void appendOtherRows(std::vector<TaskListRow>& rows, const TaskListViewState::View& state,
                     bool isDoneUnfolded, RowKeys& keys) {
    rows.reserve(rows.size() + state.nonRunningItems.size() + 3);
    const bool isSearch = state.matchCount.has_value();
    NonRunningItems toDo;
    NonRunningItems done;
    for (const TaskListViewState::NonRunningItem& item : state.nonRunningItems) {
        if (!isSearch || item.match) {
            (item.doneDate ? done : toDo).push_back(&item);
        }
    }
    appendSection(rows, Section::nonRunning, QObject::tr("Not running"),
                  toDo.empty() ? hintOf(state) : QString());
    appendRows(rows, toDo, keys);
    if (done.empty()) {
        return;
    }
    //: The heading of what is done, with how many tasks that are.
    TaskListRow& fold =
        rows.emplace_back(textRow(isSearch ? TaskListRow::Kind::header : TaskListRow::Kind::fold,
                                  Section::done, QObject::tr("Done (%L1)").arg(done.size())));
    fold.isUnfolded = isDoneUnfolded || isSearch;
    if (fold.isUnfolded) {
        // What was done last comes first.
        std::ranges::stable_sort(done, std::ranges::greater(),
                                 &TaskListViewState::NonRunningItem::doneDate);
        appendRows(rows, done, keys);
    } else {
        fold.isSelected =
            std::ranges::any_of(done, [](const auto* item) { return item->isSelected; });
    }
}

}  // namespace hearthmark::ui
