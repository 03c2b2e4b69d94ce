// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/clock.h"
#include "base/uuid.h"
#include "presentation/add_task_view_model.h"
#include "presentation/home_view_model.h"
#include "presentation/note_drafts.h"
#include "presentation/notes_view_model.h"
#include "presentation/selected_task_id.h"
#include "presentation/task_detail_view_model.h"
#include "presentation/tasks_list_view_model.h"
#include "presentation/text_edit_view_model.h"
#include "services/ports/time_keeping.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// Makes view models of one kind, a new one at each call, so that a preview can hand its views
// others.
template <class ViewModel>
class ViewModelFactory {
 public:
    virtual ~ViewModelFactory() = default;

    virtual std::shared_ptr<ViewModel> makeViewModel() const = 0;
};

using HomeVMFactoryProtocol = ViewModelFactory<HomeViewModelProtocol>;
using AddTaskVMFactoryProtocol = ViewModelFactory<AddTaskViewModelProtocol>;
using TaskListVMFactoryProtocol = ViewModelFactory<TaskListViewModelProtocol>;
using TaskDetailVMFactoryProtocol = ViewModelFactory<TaskDetailViewModelProtocol>;
using NotesVMFactoryProtocol = ViewModelFactory<NotesViewModelProtocol>;
using TextEditVMFactoryProtocol = ViewModelFactory<TextEditViewModel>;

class HomeVMFactory final : public HomeVMFactoryProtocol {
 public:
    HomeVMFactory(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                  std::shared_ptr<SelectedTaskIdPublisher> selectedTaskId);

    std::shared_ptr<HomeViewModelProtocol> makeViewModel() const override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<SelectedTaskIdPublisher> selectedTaskId_;
};

class AddTaskVMFactory final : public AddTaskVMFactoryProtocol {
 public:
    explicit AddTaskVMFactory(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService);

    std::shared_ptr<AddTaskViewModelProtocol> makeViewModel() const override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
};

class TaskListVMFactory final : public TaskListVMFactoryProtocol {
 public:
    TaskListVMFactory(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock,
        std::shared_ptr<SelectedTaskId> mutableSelectedTaskId);

    std::shared_ptr<TaskListViewModelProtocol> makeViewModel() const override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<SelectedTaskId> mutableSelectedTaskId_;
};

class TaskDetailVMFactory final : public TaskDetailVMFactoryProtocol {
 public:
    TaskDetailVMFactory(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        const base::Uuid& selectedTaskId,
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock);

    std::shared_ptr<TaskDetailViewModelProtocol> makeViewModel() const override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    base::Uuid selectedTaskId_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
};

class NotesVMFactory final : public NotesVMFactoryProtocol {
 public:
    NotesVMFactory(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                   std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
                   std::shared_ptr<const base::Clock> clock, std::shared_ptr<NoteDrafts> drafts,
                   const base::Uuid& taskId);

    std::shared_ptr<NotesViewModelProtocol> makeViewModel() const override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<NoteDrafts> drafts_;
    base::Uuid taskId_;
};

class TextEditVMFactory final : public TextEditVMFactoryProtocol {
 public:
    TextEditVMFactory(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                      std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveData,
                      std::shared_ptr<NoteDrafts> drafts, const base::Uuid& taskId);

    std::shared_ptr<TextEditViewModel> makeViewModel() const override;

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<NoteDrafts> drafts_;
    base::Uuid taskId_;
};

}  // namespace hearthmark::presentation
