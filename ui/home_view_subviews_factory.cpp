// SPDX-License-Identifier: MIT
#include "ui/home_view_subviews_factory.h"

#include <utility>

#include "presentation/view_model_factories.h"

namespace hearthmark::ui {

HomeViewSubviewsFactory::HomeViewSubviewsFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock,
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId,
    TimeKeepingProviderMaker makeTimeKeepingProvider)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      mutableSelectedTaskId_(std::move(mutableSelectedTaskId)),
      makeTimeKeepingProvider_(std::move(makeTimeKeepingProvider)) {}

std::unique_ptr<TaskListAdapter> HomeViewSubviewsFactory::makeTaskListView() const {
    const presentation::TaskListVMFactory factory(dataOperationsService_, liveDataFactory_,
                                                  makeTimeKeepingProvider_(), clock_,
                                                  mutableSelectedTaskId_);
    return std::make_unique<TaskListAdapter>(factory.makeViewModel());
}

std::unique_ptr<TaskDetailAdapter> HomeViewSubviewsFactory::makeTaskDetailView(
    const base::Uuid& taskId) const {
    const presentation::TaskDetailVMFactory factory(dataOperationsService_, liveDataFactory_,
                                                    taskId, makeTimeKeepingProvider_(), clock_);
    return std::make_unique<TaskDetailAdapter>(factory.makeViewModel());
}

std::unique_ptr<AddTaskAdapter> HomeViewSubviewsFactory::makeAddTaskView() const {
    const presentation::AddTaskVMFactory factory(dataOperationsService_);
    return std::make_unique<AddTaskAdapter>(factory.makeViewModel());
}

}  // namespace hearthmark::ui
