// SPDX-License-Identifier: MIT
#include "ui/task_detail_adapter.h"

#include <utility>
#include <vector>

#include "store/time_texts.h"
#include "ui/assign_shown.h"
#include "ui/ordinals.h"
#include "ui/text_conversion.h"

namespace hearthmark::ui {

namespace {

QString durationText(base::Seconds duration) {
    return toQString(store::formattedDuration(duration).value_or(""));
}

template <class Interval>
std::vector<IntervalRow> intervalRows(const std::vector<Interval>& intervals) {
    std::vector<IntervalRow> rows;
    rows.reserve(intervals.size());
    Ordinals ordinals;
    for (const Interval& interval : intervals) {
        rows.push_back(
            {.rowKey = {.id = interval.intervalId, .ordinal = ordinals.next(interval.intervalId)},
             .timeSpent = toQString(interval.totalTimeSpent),
             .button = {},
             .onButtonTap = {},
             .onDelete = interval.onDeleteCommand});
    }
    return rows;
}

}  // namespace

TaskDetailAdapter::TaskDetailAdapter(
    std::shared_ptr<presentation::TaskDetailViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)),
      shortFocusText_(durationText(presentation::kShortFocus)),
      longFocusText_(durationText(presentation::kLongFocus)),
      subscription_(viewModel_->viewState().subscribeDidChange([this] { show(); })) {
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

void TaskDetailAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state) {
        return;
    }
    runningIntervals_.update(intervalRows(state->runningIntervals));
    nonRunningIntervals_.update(intervalRows(state->nonRunningIntervals));
    if (QString name = toQString(state->taskName); name != taskName_) {
        taskName_ = std::move(name);
        emit taskNameChanged();
    }
    if (QString total = toQString(state->totalTimeSpent); total != totalTimeSpent_) {
        totalTimeSpent_ = std::move(total);
        emit totalTimeSpentChanged();
    }
    if (state->canStartFocus != canStartFocus_) {
        canStartFocus_ = state->canStartFocus;
        emit canStartFocusChanged();
    }
    if (!loaded_) {
        loaded_ = true;
        emit loadedChanged();
    }
}

}  // namespace hearthmark::ui
