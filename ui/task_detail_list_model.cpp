// SPDX-License-Identifier: MIT
#include "ui/task_detail_list_model.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ui/assign_shown.h"
#include "ui/text_conversion.h"

namespace hearthmark::ui {

using presentation::NotesViewState;
using presentation::TaskDetailViewState;

QList<int> TaskDetailRow::assign(TaskDetailRow&& next) {
    QList<int> changed;
    assignShown(text, std::move(next.text), TaskDetailListModel::TextRole, changed);
    onDelete = std::move(next.onDelete);
    return changed;
}

void TaskDetailListModel::show(const TaskDetailViewState::View& detail,
                               const NotesViewState::View& notes) {
    std::vector<TaskDetailRow> rows;
    rows.reserve(detail.nonRunningIntervals.size() + notes.committedNotes.size() + 1);
    RowKeys keys;
    for (const TaskDetailViewState::NonRunningInterval& interval : detail.nonRunningIntervals) {
        rows.push_back({.key = keys.next(Interval, interval.intervalId),
                        .text = toQString(interval.totalTimeSpent),
                        .onDelete = interval.onDeleteCommand});
    }
    rows.push_back({.key = keys.next(NotesSection, {}), .text = {}, .onDelete = {}});
    for (const NotesViewState::CommittedNote& note : notes.committedNotes) {
        rows.push_back({.key = keys.next(Note, note.id),
                        .text = toQString(note.noteText),
                        .onDelete = note.onDeleteCommand});
    }
    update(std::move(rows));
    emit shown();
}

QVariant TaskDetailListModel::data(const QModelIndex& index, int role) const {
    const TaskDetailRow* row = rowAt(index.row());
    if (row == nullptr) {
        return {};
    }
    switch (role) {
        case KindRole:
            return row->key.kind;
        case TextRole:
            return row->text;
        default:
            return {};
    }
}

QHash<int, QByteArray> TaskDetailListModel::roleNames() const {
    return {{KindRole, "kind"}, {TextRole, "text"}};
}

void TaskDetailListModel::deleteRow(int row) const {
    if (const TaskDetailRow* deleted = rowAt(row)) {
        run(deleted->onDelete);
    }
}

int TaskDetailListModel::notesRow() const {
    const auto isInterval = [](const TaskDetailRow& row) { return row.key.kind == Interval; };
    return static_cast<int>(std::ranges::partition_point(rows(), isInterval) - rows().begin());
}

int TaskDetailListModel::stepped(int row, int step) const {
    int next = row + step;
    if (next == notesRow()) {
        next += step;
    }
    return rowAt(next) != nullptr ? next : row;
}

}  // namespace hearthmark::ui
