// SPDX-License-Identifier: MIT
#include "ui/detail/task_detail_adapter.h"

#include <utility>
#include <vector>

#include "store/time_texts.h"
#include "ui/state/replace_adapter.h"
#include "ui/state/run_action.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

QString durationText(base::Seconds duration) {
    return toQString(store::formattedDuration(duration).value_or(""));
}

std::vector<IntervalRow> intervalRows(
    const std::vector<presentation::TaskDetailViewState::RunningInterval>& intervals) {
    std::vector<IntervalRow> rows;
    rows.reserve(intervals.size());
    RowKeys keys;
    for (const auto& interval : intervals) {
        rows.push_back({.key = keys.next(interval.intervalId),
                        .timeSpent = toQString(interval.totalTimeSpent),
                        .button = {},
                        .progress = interval.progress,
                        .onButtonTap = {},
                        .onDelete = interval.onDeleteCommand});
    }
    return rows;
}

}  // namespace

TaskDetailAdapter::TaskDetailAdapter(
    std::shared_ptr<presentation::TaskDetailViewModelProtocol> viewModel,
    TaskDetailSubviewsFactory subviewsFactory)
    : viewModel_(std::move(viewModel)),
      subviewsFactory_(std::move(subviewsFactory)),
      notes_(subviewsFactory_.makeNotesView()),
      edit_(subviewsFactory_.makeTextEditView()),
      shortFocusText_(durationText(presentation::kShortFocus)),
      longFocusText_(durationText(presentation::kLongFocus)) {
    follow(viewModel_->viewState());
    connect(notes_.get(), &NotesAdapter::changed, this, &TaskDetailAdapter::showNotes);
    connect(edit_.get(), &TextEditAdapter::editChanged, &rows_,
            [this] { rows_.showEdited(edit_->noteId()); });
    connect(&rows_, &TaskDetailListModel::shown, this, &TaskDetailAdapter::rowsShown,
            Qt::QueuedConnection);
    showNotes();
    rows_.showEdited(edit_->noteId());
    viewModel_->startObserving();
}

void TaskDetailAdapter::startShortFocus() {
    if (const auto& state = viewModel_->viewState().value(); state && state->canStartFocus) {
        run(state->onStartShortFocusTap);
    }
}

void TaskDetailAdapter::startLongFocus() {
    if (const auto& state = viewModel_->viewState().value(); state && state->canStartFocus) {
        run(state->onStartLongFocusTap);
    }
}

void TaskDetailAdapter::editNote(int row) {
    if (const auto noteId = rows_.noteId(row)) {
        edit_->editNote(*noteId);
    }
}

void TaskDetailAdapter::displayShareSheet() {
    if (!displayedSheetType_) {
        displayedSheetType_ = TaskDetailViewSheetType::share;
        share_ = subviewsFactory_.makeShareView();
        emit displayedSheetTypeChanged();
    }
}

void TaskDetailAdapter::dismissShareSheet() {
    if (displayedSheetType_) {
        displayedSheetType_.reset();
        replaceAdapter<ShareContainerAdapter>(share_, nullptr,
                                              [this] { emit displayedSheetTypeChanged(); });
    }
}

void TaskDetailAdapter::displayWholeNote(int row) {
    if (!wholeNote_) {
        wholeNote_ = std::make_unique<WholeNoteAdapter>(toUtf8(rows_.wholeText(row)));
        emit wholeNoteChanged();
    }
}

void TaskDetailAdapter::dismissWholeNote() {
    if (wholeNote_) {
        replaceAdapter<WholeNoteAdapter>(wholeNote_, nullptr, [this] { emit wholeNoteChanged(); });
    }
}

void TaskDetailAdapter::showNotes() {
    if (const auto& state = notes_->state()) {
        rows_.showNotes(state->committedNotes);
    }
}

void TaskDetailAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state) {
        return;
    }
    runningIntervals_.update(intervalRows(state->runningIntervals));
    rows_.showIntervals(state->nonRunningIntervals);
    if (replace(taskName_, toQString(state->taskName))) {
        emit taskNameChanged();
    }
    if (replace(totalTimeSpent_, toQString(state->totalTimeSpent))) {
        emit totalTimeSpentChanged();
    }
    if (replace(canStartFocus_, state->canStartFocus)) {
        emit canStartFocusChanged();
    }
    if (replace(loaded_, true)) {
        emit loadedChanged();
    }
}

}  // namespace hearthmark::ui
