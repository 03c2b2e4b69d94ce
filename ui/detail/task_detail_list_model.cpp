// SPDX-License-Identifier: MIT
#include "ui/detail/task_detail_list_model.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "ui/state/run_action.h"
#include "ui/state/state_adapter.h"
#include "ui/text/began_text.h"
#include "ui/text/duration_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

using presentation::NotesViewState;
using presentation::TaskDetailViewState;

namespace {

// Each line of a text takes its time, and a note may be a megabyte.
constexpr qsizetype kMostLines = 500;
constexpr qsizetype kMostCharacters = 20'000;

// Where the part of a note ends that is shown among the others.
qsizetype shownLength(const QString& note) {
    qsizetype end = -1;
    for (qsizetype line = 0; line < kMostLines; ++line) {
        end = note.indexOf(QLatin1Char('\n'), end + 1);
        if (end < 0) {
            end = note.size();
            break;
        }
    }
    end = std::min(end, kMostCharacters);
    const bool isInCharacter = end < note.size() && end > 0 && note[end - 1].isHighSurrogate();
    return isInCharacter ? end - 1 : end;
}

QVariant continueText(const TaskDetailRow& row) {
    return row.rest ? TaskDetailListModel::tr("Continue %1").arg(durationText(*row.rest))
                    : QString();
}

QVariant beganOf(const TaskDetailRow& row) {
    return beganText(row.creationDate, row.today);
}

bool hasOtherDate(const TaskDetailRow& a, const TaskDetailRow& b) {
    const auto dates = [](const TaskDetailRow& row) {
        return std::pair<std::optional<base::Date>, std::optional<base::Date>>(row.creationDate,
                                                                               row.today);
    };
    return dates(a) != dates(b);
}

}  // namespace

const std::vector<RowRole<TaskDetailRow>>& TaskDetailRow::roles() {
    static const std::vector kRoles{
        kindRole<TaskDetailRow>(),
        role<&TaskDetailRow::text>("text"),
        role<&TaskDetailRow::isCut>("isCut"),
        role<&TaskDetailRow::isEdited>("isEdited"),
        RowRole<TaskDetailRow>{"began", &beganOf, &hasOtherDate},
        RowRole<TaskDetailRow>{
            "continueText", &continueText,
            [](const TaskDetailRow& a, const TaskDetailRow& b) { return a.rest != b.rest; }}};
    return kRoles;
}

TaskDetailListModel::TaskDetailListModel(QObject* parent) : RowListModel(parent) {
    update({{.key = {.kind = NotesSection, .id = {}, .ordinal = 0},
             .text = {},
             .wholeText = {},
             .creationDate = {},
             .today = {},
             .onDelete = {}}});
}

void TaskDetailListModel::showIntervals(
    const livedata::SharedList<TaskDetailViewState::NonRunningInterval>& intervals) {
    if (intervals.isSame(shownIntervals_)) {
        return;
    }
    shownIntervals_ = intervals;
    std::vector<TaskDetailRow> next;
    next.reserve(intervals.size());
    RowKeys keys;
    for (const TaskDetailViewState::NonRunningInterval& interval : intervals) {
        next.push_back({.key = keys.next(interval.intervalId, Interval),
                        .text = toQString(interval.totalTimeSpent),
                        .wholeText = {},
                        .creationDate = interval.creationDate,
                        .today = today_,
                        .rest = interval.rest,
                        .onDelete = interval.onDeleteCommand});
    }
    update(0, static_cast<std::size_t>(notesRow()), std::move(next));
    emit shown();
}

void TaskDetailListModel::showNotes(
    const livedata::SharedList<NotesViewState::CommittedNote>& notes) {
    if (notes.isSame(shownNotes_)) {
        return;
    }
    shownNotes_ = notes;
    makeNotes();
    emit shown();
}

void TaskDetailListModel::showEdited(const std::optional<base::Uuid>& noteId) {
    if (noteId != edited_) {
        edited_ = noteId;
        makeNotes();
        emit shown();
    }
}

void TaskDetailListModel::makeNotes() {
    std::vector<TaskDetailRow> next;
    next.reserve(shownNotes_.size());
    RowKeys keys;
    for (const NotesViewState::CommittedNote& note : shownNotes_) {
        const QString wholeText = toQString(note.noteText);
        const qsizetype shown = shownLength(wholeText);
        const bool isCut = shown < wholeText.size();
        const RowKey key = keys.next(note.id, Note);
        next.push_back({.key = key,
                        .text = isCut ? wholeText.left(shown) + QChar(0x2026) : wholeText,
                        .wholeText = wholeText,
                        .isCut = isCut,
                        .isEdited = note.id == edited_ && key.ordinal == 0,
                        .creationDate = note.creationDate,
                        .today = today_,
                        .onDelete = note.onDeleteCommand});
    }
    update(static_cast<std::size_t>(notesRow()) + 1, rows().size(), std::move(next));
}

void TaskDetailListModel::showToday(std::optional<base::Date> today) {
    if (replace(today_, today)) {
        changeAll("began", [&today](TaskDetailRow& row) { row.today = today; });
    }
}

void TaskDetailListModel::deleteRow(int row) const {
    if (const TaskDetailRow* deleted = rowAt(row)) {
        run(deleted->onDelete);
    }
}

void TaskDetailListModel::copyRow(int row) const {
    if (const TaskDetailRow* copied = rowAt(row)) {
        QGuiApplication::clipboard()->setText(copied->wholeText);
    }
}

std::optional<base::Seconds> TaskDetailListModel::rest(int row) const {
    const TaskDetailRow* interval = rowAt(row);
    return interval != nullptr ? interval->rest : std::nullopt;
}

QString TaskDetailListModel::wholeText(int row) const {
    const TaskDetailRow* note = rowAt(row);
    return note != nullptr ? note->wholeText : QString();
}

std::optional<base::Uuid> TaskDetailListModel::noteId(int row) const {
    const TaskDetailRow* note = rowAt(row);
    return note != nullptr && note->key.kind == Note ? std::optional(note->key.id) : std::nullopt;
}

int TaskDetailListModel::editedRow() const {
    const auto edited = std::ranges::find(rows(), true, &TaskDetailRow::isEdited);
    return edited == rows().end() ? -1 : static_cast<int>(edited - rows().begin());
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
