// SPDX-License-Identifier: MIT
#include "presentation/view_model_factories.h"

#include <utility>

namespace hearthmark::presentation {

HomeVMFactory::HomeVMFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<SelectedTaskIdPublisher> selectedTaskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      selectedTaskId_(std::move(selectedTaskId)) {}

std::shared_ptr<HomeViewModelProtocol> HomeVMFactory::makeViewModel() const {
    return HomeViewModel::make(dataOperationsService_, selectedTaskId_);
}

AddTaskVMFactory::AddTaskVMFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService)
    : dataOperationsService_(std::move(dataOperationsService)) {}

std::shared_ptr<AddTaskViewModelProtocol> AddTaskVMFactory::makeViewModel() const {
    return std::make_shared<AddTaskViewModel>(dataOperationsService_);
}

TaskListVMFactory::TaskListVMFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock, std::shared_ptr<SelectedTaskId> mutableSelectedTaskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)),
      mutableSelectedTaskId_(std::move(mutableSelectedTaskId)) {}

std::shared_ptr<TaskListViewModelProtocol> TaskListVMFactory::makeViewModel() const {
    return std::make_shared<TasksListViewModel>(dataOperationsService_, liveDataFactory_,
                                                timeKeepingProvider_, clock_,
                                                mutableSelectedTaskId_);
}

TaskDetailVMFactory::TaskDetailVMFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    const base::Uuid& selectedTaskId,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      selectedTaskId_(selectedTaskId),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)) {}

std::shared_ptr<TaskDetailViewModelProtocol> TaskDetailVMFactory::makeViewModel() const {
    return std::make_shared<TaskDetailViewModel>(dataOperationsService_, liveDataFactory_,
                                                 timeKeepingProvider_, clock_, selectedTaskId_);
}

NotesVMFactory::NotesVMFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock, std::shared_ptr<NoteDrafts> drafts,
    const base::Uuid& taskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      drafts_(std::move(drafts)),
      taskId_(taskId) {}

std::shared_ptr<NotesViewModelProtocol> NotesVMFactory::makeViewModel() const {
    return std::make_shared<NotesViewModel>(dataOperationsService_, liveDataFactory_, clock_,
                                            *drafts_, taskId_);
}

TextEditVMFactory::TextEditVMFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveData,
    std::shared_ptr<NoteDrafts> drafts, const base::Uuid& taskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveData)),
      drafts_(std::move(drafts)),
      taskId_(taskId) {}

std::shared_ptr<TextEditViewModel> TextEditVMFactory::makeViewModel() const {
    return std::make_shared<TextEditViewModel>(dataOperationsService_, liveDataFactory_, *drafts_,
                                               taskId_);
}

}  // namespace hearthmark::presentation
