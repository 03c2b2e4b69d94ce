// SPDX-License-Identifier: MIT
#include "presentation/task_detail_view_model.h"

#include <utility>

#include "base/weakly.h"
#include "presentation/texts.h"
#include "store/interval.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

TaskDetailViewState::View placeholder() {
    const livedata::Action nothing = livedata::makeAction([] {});
    return {.canStartFocus = false,
            .onStartLongFocusTap = nothing,
            .onStartShortFocusTap = nothing,
            .onStartFocus = std::make_shared<const livedata::Block<base::Seconds>>([](auto) {}),
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
    const auto weak = weak_from_this();
    liveTasks_ = std::make_shared<LiveTasks>(timeKeepingProvider_,
                                             base::weakly(weak, &TaskDetailViewModel::follow),
                                             base::weakly(weak, &TaskDetailViewModel::rebuild));
    liveTasks_->startObserving(*liveDataFactory_);
}

void TaskDetailViewModel::follow(const store::Tasks& tasks) {
    tasks_ = tasks;
    task_ = store::taskWithId(tasks, selectedTaskId_);
    canStartFocus_ = services::canStartFocus(tasks);
    rebuild();
}

void TaskDetailViewModel::rebuild() {
    viewState_.setValue(task_ != nullptr ? view(*task_) : placeholder());
}

TaskDetailViewState::View TaskDetailViewModel::view(const store::Task& task) {
    const store::Task::IntervalSummary& intervals = *task.intervalSummary();
    if (settledIntervals_ != intervals.settled) {
        settledIntervals_ = intervals.settled;
        nonRunningIntervals_ = nonRunningIntervals(settledIntervals_->intervals);
    }
    TaskDetailViewState::View view{
        .canStartFocus = canStartFocus_,
        .onStartLongFocusTap = startAction(kLongFocus),
        .onStartShortFocusTap = startAction(kShortFocus),
        .onStartFocus = std::make_shared<const livedata::Block<base::Seconds>>(
            base::weakly(weak_from_this(), &TaskDetailViewModel::startFocus)),
        .nonRunningIntervals = nonRunningIntervals_,
        .runningIntervals = {},
        .taskName = orDash(task.name()),
        .totalTimeSpent = orDash(store::formattedDuration(store::timeSpent(task, *clock_))),
        .isDone = task.doneDate() && !task.isRunning(),
        .onDoneTap = task.isRunning() ? nullptr : doneAction(task.doneDate().has_value())};
    for (const store::Interval* interval : intervals.running) {
        if (interval->id()) {
            view.runningIntervals.push_back({.intervalId = *interval->id(),
                                             .onDeleteCommand = deleteAction(*interval->id()),
                                             .totalTimeSpent = timeSpentText(*interval),
                                             .progress = store::progress(*interval, *clock_),
                                             .creationDate = interval->creationDate(),
                                             .onExtend = extendAction(*interval)});
        }
    }
    return view;
}

livedata::SharedList<TaskDetailViewState::NonRunningInterval>
TaskDetailViewModel::nonRunningIntervals(const std::vector<const store::Interval*>& settled) {
    std::vector<TaskDetailViewState::NonRunningInterval> rows;
    rows.reserve(settled.size());
    for (const store::Interval* interval : settled) {
        if (interval->intervalState() && interval->id()) {
            rows.push_back({.intervalId = *interval->id(),
                            .onDeleteCommand = deleteAction(*interval->id()),
                            .totalTimeSpent = timeSpentText(*interval),
                            .creationDate = interval->creationDate(),
                            .rest = services::restOf(*interval)});
        }
    }
    return livedata::SharedList(std::move(rows));
}

livedata::Action TaskDetailViewModel::deleteAction(const base::Uuid& intervalId) {
    return livedata::makeAction(base::weakly(weak_from_this(), [intervalId](auto& self) {
        self.dataOperationsService_->deleteInterval(intervalId, self.selectedTaskId_);
    }));
}

livedata::Action TaskDetailViewModel::extendAction(const store::Interval& interval) {
    if (!(interval.maxDuration() > base::Seconds(0))) {
        return nullptr;
    }
    return livedata::makeAction(base::weakly(weak_from_this(), [intervalId =
                                                                    *interval.id()](auto& self) {
        self.dataOperationsService_->extendInterval(intervalId, self.selectedTaskId_, kMoreFocus);
    }));
}

livedata::Action TaskDetailViewModel::doneAction(bool isDone) {
    const auto change = isDone ? &store::DataOperationsServiceProtocol::reopenTask
                               : &store::DataOperationsServiceProtocol::markTaskDone;
    return livedata::makeAction(base::weakly(weak_from_this(), [change](auto& self) {
        ((*self.dataOperationsService_).*change)(self.selectedTaskId_);
    }));
}

std::string TaskDetailViewModel::timeSpentText(const store::Interval& interval) const {
    return orDash(store::formattedTimeSpent(interval, *clock_));
}

livedata::Action TaskDetailViewModel::startAction(base::Seconds maxDuration) {
    return livedata::makeAction(base::weakly(
        weak_from_this(), [maxDuration](auto& self) { self.startFocus(maxDuration); }));
}

void TaskDetailViewModel::startFocus(base::Seconds maxDuration) {
    services::startFocus(*dataOperationsService_, *clock_, selectedTaskId_, maxDuration);
}

}  // namespace hearthmark::presentation
