// SPDX-License-Identifier: MIT
#include "ui/detail/task_detail_adapter.h"

#include <utility>
#include <vector>

#include "ui/state/replace_adapter.h"
#include "ui/state/run_action.h"
#include "ui/text/began_text.h"
#include "ui/text/duration_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

std::vector<IntervalRow> intervalRows(
    const std::vector<presentation::TaskDetailViewState::RunningInterval>& intervals,
    std::optional<base::Date> today) {
    const QString extension = QLatin1Char('+') + durationText(presentation::kMoreFocus);
    std::vector<IntervalRow> rows;
    rows.reserve(intervals.size());
    RowKeys keys;
    for (const auto& interval : intervals) {
        rows.push_back({.key = keys.next(interval.intervalId),
                        .timeSpent = toQString(interval.totalTimeSpent),
                        .button = {},
                        .progress = interval.progress,
                        .began = beganText(interval.creationDate, today),
                        .extension = interval.onExtend ? extension : QString(),
                        .onButtonTap = {},
                        .onDelete = interval.onDeleteCommand,
                        .onExtend = interval.onExtend});
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
      longFocusText_(durationText(presentation::kLongFocus)),
      ownFocus_({.ownLengths = [this] { return viewModel_->ownLengths(); },
                 .start = [this](base::Seconds length) { startFocus(length); }}) {
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

void TaskDetailAdapter::startFocus(base::Seconds length) {
    if (const auto& state = viewModel_->viewState().value(); state && state->canStartFocus) {
        const auto start = state->onStartFocus;
        (*start)(length);
    }
}

void TaskDetailAdapter::toggleDone() {
    if (const auto& state = viewModel_->viewState().value(); state && state->onDoneTap) {
        run(state->onDoneTap);
    }
}

void TaskDetailAdapter::continueInterval(int row) {
    if (const auto rest = rows_.rest(row)) {
        startFocus(*rest);
    }
}

void TaskDetailAdapter::showToday(std::optional<base::Date> today) {
    today_ = today;
    rows_.showToday(today);
    show();
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

void TaskDetailAdapter::correctInterval(int row) {
    if (const auto id = rows_.idAt(row)) {
        displayCorrection(id);
    }
}

void TaskDetailAdapter::correctRunningInterval(int row) {
    if (const auto id = runningIntervals_.idAt(row)) {
        displayCorrection(id);
    }
}

void TaskDetailAdapter::addInterval() {
    displayCorrection(std::nullopt);
}

void TaskDetailAdapter::displayCorrection(const std::optional<base::Uuid>& intervalId) {
    if (!correction_ && loaded_) {
        correction_ = subviewsFactory_.makeCorrectIntervalView(intervalId);
        emit correctionChanged();
    }
}

void TaskDetailAdapter::dismissCorrection() {
    if (correction_) {
        replaceAdapter<CorrectIntervalAdapter>(correction_, nullptr,
                                               [this] { emit correctionChanged(); });
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
    runningIntervals_.update(intervalRows(state->runningIntervals, today_));
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
    const bool isOtherMark = replace(isDone_, state->isDone);
    if (replace(canBeDone_, state->onDoneTap != nullptr) || isOtherMark) {
        emit doneChanged();
    }
    if (replace(loaded_, true)) {
        emit loadedChanged();
    }
}

}  // namespace hearthmark::ui
