// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/clock.h"
#include "livedata/published.h"
#include "livedata/subscription.h"
#include "presentation/live_tasks.h"
#include "presentation/selected_task_id.h"
#include "presentation/task_list_view_state.h"
#include "presentation/task_search.h"
#include "presentation/task_versions.h"
#include "services/ports/time_keeping.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

class TaskListViewModelProtocol {
 public:
    virtual ~TaskListViewModelProtocol() = default;

    // Absent until observation has begun.
    virtual livedata::Published<std::optional<TaskListViewState::View>>& viewState() = 0;

    // Called once, when the list comes on screen.
    virtual void startObserving() = 0;

    // From here until the search is closed the state tells which tasks hold all words that are
    // typed: none at first.
    virtual void openSearch() = 0;
    // Does nothing while no search is open.
    virtual void search(std::string_view typed) = 0;
    virtual void closeSearch() = 0;
};

// Makes the task list's state from the live tasks, the clock and the selection, whole, on every
// change and once a second while something runs.
class TasksListViewModel final : public TaskListViewModelProtocol,
                                 public std::enable_shared_from_this<TasksListViewModel> {
 public:
    // To be held by a shared pointer: its closures hold it weakly.
    TasksListViewModel(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock,
        std::shared_ptr<SelectedTaskId> mutableSelectedTaskId);

    livedata::Published<std::optional<TaskListViewState::View>>& viewState() override {
        return viewState_;
    }
    void startObserving() override;
    void openSearch() override;
    void search(std::string_view typed) override;
    void closeSearch() override;

 private:
    void follow(const store::Tasks& tasks);
    void makeNonRunningItems();
    // Of the items that there are, what is found in them alone.
    void renewMatches();
    // Of the tasks that are followed, at this moment.
    void rebuild();
    TaskListViewState::RunningItem runningItem(const store::Task& task, const base::Uuid& taskId);
    TaskListViewState::NonRunningItem nonRunningItem(const store::Task& task,
                                                     const base::Uuid& taskId);
    TaskListViewState::RunningItemInterval runningItemInterval(const store::Interval& interval,
                                                               const base::Uuid& intervalId,
                                                               const base::Uuid& taskId);
    std::shared_ptr<const TaskListViewState::Match> match(const store::Task& task) const;
    bool isSelected(const base::Uuid& taskId) const;
    std::string taskTimeSpent(const store::Task& task) const;
    livedata::Action selectAction(const base::Uuid& taskId);
    livedata::Action deleteTaskAction(const base::Uuid& taskId);

    livedata::Published<std::optional<TaskListViewState::View>> viewState_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<SelectedTaskId> mutableSelectedTaskId_;
    std::shared_ptr<LiveTasks> liveTasks_;
    // They keep those that run alive.
    store::Tasks tasks_;
    // Newest first.
    std::vector<const store::Task*> running_;
    std::vector<const store::Task*> others_;
    // The others as they are shown, and what that was made of.
    livedata::SharedList<TaskListViewState::NonRunningItem> nonRunningItems_;
    TaskVersions versions_;
    std::optional<base::Uuid> shownSelection_;
    // Both present only while a search is open. What is found in notes changes with them.
    std::unique_ptr<TaskSearch> search_;
    std::unique_ptr<store::LiveDataProvider<store::Note>> notesProvider_;
    livedata::Subscription notesSubscription_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::presentation
