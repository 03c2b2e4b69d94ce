// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "base/clock.h"
#include "livedata/published.h"
#include "presentation/focus_length.h"
#include "presentation/live_tasks.h"
#include "presentation/task_detail_view_state.h"
#include "services/ports/time_keeping.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

class TaskDetailViewModelProtocol {
 public:
    virtual ~TaskDetailViewModelProtocol() = default;

    // Absent until observation has begun; of a task that is gone, a placeholder with which nothing
    // can be done.
    virtual livedata::Published<std::optional<TaskDetailViewState::View>>& viewState() = 0;

    // As `newestOwnLengths` of all tasks, worked out at each call.
    virtual std::vector<base::Seconds> ownLengths() const = 0;

    // Called once, when the pane comes on screen.
    virtual void startObserving() = 0;
};

// Makes the state of one task's detail pane, whole, on every change and once a second while any
// interval runs. To be held by a shared pointer: its closures hold it weakly.
class TaskDetailViewModel final : public TaskDetailViewModelProtocol,
                                  public std::enable_shared_from_this<TaskDetailViewModel> {
 public:
    TaskDetailViewModel(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock, const base::Uuid& selectedTaskId);

    livedata::Published<std::optional<TaskDetailViewState::View>>& viewState() override {
        return viewState_;
    }
    std::vector<base::Seconds> ownLengths() const override { return newestOwnLengths(tasks_); }
    void startObserving() override;

 private:
    void follow(const store::Tasks& tasks);
    // Of the tasks that are followed, at this moment.
    void rebuild();
    TaskDetailViewState::View view(const store::Task& task);
    livedata::SharedList<TaskDetailViewState::NonRunningInterval> nonRunningIntervals(
        const std::vector<const store::Interval*>& settled);
    livedata::Action deleteAction(const base::Uuid& intervalId);
    livedata::Action extendAction(const store::Interval& interval);
    livedata::Action doneAction(bool isDone);
    std::string timeSpentText(const store::Interval& interval) const;
    livedata::Action startAction(base::Seconds maxDuration);
    void startFocus(base::Seconds maxDuration);

    livedata::Published<std::optional<TaskDetailViewState::View>> viewState_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    base::Uuid selectedTaskId_;
    std::shared_ptr<LiveTasks> liveTasks_;
    // They keep the selected one alive.
    store::Tasks tasks_;
    // Null where it is gone.
    const store::Task* task_ = nullptr;
    bool canStartFocus_ = false;
    // As they are shown, and what that was made of.
    livedata::SharedList<TaskDetailViewState::NonRunningInterval> nonRunningIntervals_;
    std::shared_ptr<const store::Task::SettledIntervals> settledIntervals_;
};

}  // namespace hearthmark::presentation
