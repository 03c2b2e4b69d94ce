// SPDX-License-Identifier: MIT
#include "presentation/tasks_list_view_model.h"

#include <utility>

#include "base/weakly.h"
#include "presentation/texts.h"
#include "store/interval.h"
#include "store/newest_first.h"
#include "store/note.h"
#include "store/raw_interval_state.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

constexpr auto kFinish = "Finish";

}  // namespace

TasksListViewModel::TasksListViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock, std::shared_ptr<SelectedTaskId> mutableSelectedTaskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)),
      mutableSelectedTaskId_(std::move(mutableSelectedTaskId)) {}

void TasksListViewModel::startObserving() {
    const auto weak = weak_from_this();
    liveTasks_ = std::make_shared<LiveTasks>(timeKeepingProvider_,
                                             base::weakly(weak, &TasksListViewModel::follow),
                                             base::weakly(weak, &TasksListViewModel::rebuild));
    cancellables_.push_back(mutableSelectedTaskId_->subscribe(base::weakly(
        weak, [](auto& self, const auto&) { self.follow(self.liveTasks_->tasks()); })));
    liveTasks_->startObserving(*liveDataFactory_);
}

void TasksListViewModel::openSearch() {
    if (search_) {
        return;
    }
    search_ = std::make_unique<TaskSearch>();
    notesProvider_ =
        liveDataFactory_->makeProvider<store::Note>({.key = "creationDate", .ascending = true});
    notesSubscription_ = notesProvider_->currentItems()->subscribe(base::weakly(
        weak_from_this(), [](auto& self, const auto&) { self.follow(self.liveTasks_->tasks()); }));
    notesProvider_->startObserving();
}

void TasksListViewModel::search(std::string_view typed) {
    if (search_ && search_->setWords(typed)) {
        renewMatches();
        rebuild();
    }
}

void TasksListViewModel::closeSearch() {
    if (!search_) {
        return;
    }
    const bool isFound = search_->hasWords();
    notesSubscription_ = {};
    notesProvider_.reset();
    search_.reset();
    if (isFound) {
        renewMatches();
    }
    rebuild();
}

void TasksListViewModel::follow(const store::Tasks& tasks) {
    std::vector<const store::Task*> others;
    running_.clear();
    for (const store::Task& task : tasks) {
        if (task.id()) {
            (task.isRunning() ? running_ : others).push_back(&task);
        }
    }
    tasks_ = tasks;
    store::sortNewestFirst(running_);
    const bool isFoundAnew = search_ && search_->follow(tasks);
    const bool isChanged = versions_.renew(others);
    if (isChanged) {
        others_ = std::move(others);
        store::sortNewestFirst(others_);
    }
    if (isChanged || isFoundAnew || mutableSelectedTaskId_->value() != shownSelection_) {
        makeNonRunningItems();
    }
    rebuild();
}

void TasksListViewModel::makeNonRunningItems() {
    shownSelection_ = mutableSelectedTaskId_->value();
    std::vector<TaskListViewState::NonRunningItem> items;
    items.reserve(others_.size());
    for (const store::Task* task : others_) {
        items.push_back(nonRunningItem(*task, *task->id()));
    }
    nonRunningItems_ = livedata::SharedList(std::move(items));
}

void TasksListViewModel::renewMatches() {
    std::vector<TaskListViewState::NonRunningItem> items(nonRunningItems_.begin(),
                                                         nonRunningItems_.end());
    for (std::size_t index = 0; index < items.size(); ++index) {
        items[index].match = match(*others_[index]);
    }
    nonRunningItems_ = livedata::SharedList(std::move(items));
}

void TasksListViewModel::rebuild() {
    TaskListViewState::View view{.runningItems = {},
                                 .nonRunningItems = nonRunningItems_,
                                 .isSearchOpen = search_ != nullptr,
                                 .matchCount = {}};
    if (search_ && search_->hasWords()) {
        view.matchCount = search_->matchCount();
    }
    for (const store::Task* task : running_) {
        view.runningItems.push_back(runningItem(*task, *task->id()));
    }
    viewState_.setValue(std::move(view));
}

TaskListViewState::RunningItem TasksListViewModel::runningItem(const store::Task& task,
                                                               const base::Uuid& taskId) {
    std::vector<TaskListViewState::RunningItemInterval> intervals;
    for (const store::Interval* interval : task.intervalSummary()->running) {
        if (interval->id()) {
            intervals.push_back(runningItemInterval(*interval, *interval->id(), taskId));
        }
    }
    return {.isSelected = isSelected(taskId),
            .taskId = taskId,
            .intervalViewStates = std::move(intervals),
            .taskName = orDash(task.name()),
            .timeSpent = taskTimeSpent(task),
            .onItemTapped = selectAction(taskId),
            .match = match(task)};
}

TaskListViewState::NonRunningItem TasksListViewModel::nonRunningItem(const store::Task& task,
                                                                     const base::Uuid& taskId) {
    return {.isSelected = isSelected(taskId),
            .onDeleteCommand = deleteTaskAction(taskId),
            .taskId = taskId,
            .taskName = orDash(task.name()),
            .timeSpent = taskTimeSpent(task),
            .button = kFinish,
            .onItemTapped = selectAction(taskId),
            .doneDate = task.doneDate(),
            .match = match(task)};
}

TaskListViewState::RunningItemInterval TasksListViewModel::runningItemInterval(
    const store::Interval& interval, const base::Uuid& intervalId, const base::Uuid& taskId) {
    return {.button = kFinish,
            .intervalId = intervalId,
            .onButtonTap = livedata::makeAction(
                base::weakly(weak_from_this(),
                             [intervalId, taskId](auto& self) {
                                 self.dataOperationsService_->finishInterval(intervalId, taskId);
                             })),
            .onDeleteCommand = deleteTaskAction(taskId),
            .timeSpent = orDash(store::formattedTimeSpent(interval, *clock_)),
            .progress = store::progress(interval, *clock_)};
}

std::shared_ptr<const TaskListViewState::Match> TasksListViewModel::match(
    const store::Task& task) const {
    return search_ ? search_->match(task) : nullptr;
}

bool TasksListViewModel::isSelected(const base::Uuid& taskId) const {
    return mutableSelectedTaskId_->value() == taskId;
}

std::string TasksListViewModel::taskTimeSpent(const store::Task& task) const {
    return orDash(store::formattedDuration(store::timeSpent(task, *clock_)));
}

livedata::Action TasksListViewModel::selectAction(const base::Uuid& taskId) {
    return livedata::makeAction(base::weakly(
        weak_from_this(), [taskId](auto& self) { self.mutableSelectedTaskId_->setValue(taskId); }));
}

livedata::Action TasksListViewModel::deleteTaskAction(const base::Uuid& taskId) {
    return livedata::makeAction(base::weakly(weak_from_this(), [taskId](auto& self) {
        self.dataOperationsService_->deleteTask(taskId);
    }));
}

}  // namespace hearthmark::presentation
