// SPDX-License-Identifier: MIT
#include "presentation/task_detail_view_model.h"

#include <algorithm>
#include <utility>

#include "presentation/texts.h"
#include "store/newest_first.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

bool hasRunningInterval(const store::Task& task) {
    return !task.intervalSummary().running.empty();
}

TaskDetailViewState::View placeholder() {
    const livedata::Action nothing = livedata::makeAction([] {});
    return {.canStartFocus = false,
            .onStartLongFocusTap = nothing,
            .onStartShortFocusTap = nothing,
            .nonRunningIntervals = {},
            .runningIntervals = {},
            .taskName = "-",
            .totalTimeSpent = "-"};
}

}  // namespace

TaskDetailViewModel::TaskDetailViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock, const base::Uuid& selectedTaskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)),
      selectedTaskId_(selectedTaskId) {}

void TaskDetailViewModel::startObserving() {
    liveTasks_ = std::make_shared<LiveTasks>(timeKeepingProvider_,
                                             [weak = weak_from_this()](const store::Tasks& tasks) {
                                                 if (const auto self = weak.lock()) {
                                                     self->rebuild(tasks);
                                                 }
                                             });
    liveTasks_->startObserving(*liveDataFactory_);
}

void TaskDetailViewModel::rebuild(const store::Tasks& tasks) {
    const bool canStartFocus = std::none_of(tasks.begin(), tasks.end(), hasRunningInterval);
    const store::Task* task = store::taskWithId(tasks, selectedTaskId_);
    viewState_.setValue(task != nullptr ? view(*task, canStartFocus) : placeholder());
}

TaskDetailViewState::View TaskDetailViewModel::view(const store::Task& task, bool canStartFocus) {
    TaskDetailViewState::View view{
        .canStartFocus = canStartFocus,
        .onStartLongFocusTap = startAction(kLongFocus),
        .onStartShortFocusTap = startAction(kShortFocus),
        .nonRunningIntervals = {},
        .runningIntervals = {},
        .taskName = orDash(task.name()),
        .totalTimeSpent = orDash(store::formattedDuration(store::timeSpent(task, *clock_)))};

    std::vector<store::Interval*> sorted = task.intervals();
    store::sortNewestFirst(sorted);
    for (const store::Interval* interval : sorted) {
        const auto state = interval->intervalState();
        if (!state || !interval->id()) {
            continue;
        }
        if (state->isRunning()) {
            view.runningIntervals.push_back({.intervalId = *interval->id(),
                                             .onDeleteCommand = deleteAction(*interval->id()),
                                             .totalTimeSpent = timeSpentText(*interval),
                                             .progress = store::progress(*interval, *clock_)});
        } else {
            view.nonRunningIntervals.push_back({.intervalId = *interval->id(),
                                                .onDeleteCommand = deleteAction(*interval->id()),
                                                .totalTimeSpent = timeSpentText(*interval)});
        }
    }
    return view;
}

livedata::Action TaskDetailViewModel::deleteAction(const base::Uuid& intervalId) {
    return livedata::makeAction([weak = weak_from_this(), intervalId] {
        if (const auto self = weak.lock()) {
            self->dataOperationsService_->deleteInterval(intervalId, self->selectedTaskId_);
        }
    });
}

std::string TaskDetailViewModel::timeSpentText(const store::Interval& interval) const {
    return orDash(store::formattedTimeSpent(interval, *clock_));
}

livedata::Action TaskDetailViewModel::startAction(base::Seconds maxDuration) {
    return livedata::makeAction([weak = weak_from_this(), maxDuration] {
        if (const auto self = weak.lock()) {
            self->startFocus(maxDuration);
        }
    });
}

void TaskDetailViewModel::startFocus(base::Seconds maxDuration) {
    const base::Date created = clock_->now();
    const base::Date started = clock_->now();
    dataOperationsService_->addInterval({.creationDate = created,
                                         .duration = base::Seconds(0),
                                         .id = base::Uuid::random(),
                                         .maxDuration = maxDuration,
                                         .state = store::IntervalState::running(started)},
                                        selectedTaskId_);
}

}  // namespace hearthmark::presentation
