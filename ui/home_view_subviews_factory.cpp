// SPDX-License-Identifier: MIT
#include "ui/home_view_subviews_factory.h"

#include <utility>

#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "presentation/view_model_factories.h"
#include "ui/task_detail_subviews_factory.h"

namespace hearthmark::ui {

HomeViewSubviewsFactory::HomeViewSubviewsFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock,
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId,
    services::TimeKeepingProviderMaker makeTimeKeepingProvider,
    std::shared_ptr<exporting::Clipboard> clipboard, std::shared_ptr<const base::Calendar> calendar)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      mutableSelectedTaskId_(std::move(mutableSelectedTaskId)),
      makeTimeKeepingProvider_(std::move(makeTimeKeepingProvider)),
      clipboard_(std::move(clipboard)),
      calendar_(std::move(calendar)) {}

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
    return std::make_unique<TaskDetailAdapter>(
        factory.makeViewModel(),
        TaskDetailSubviewsFactory(
            presentation::NotesVMFactory(dataOperationsService_, liveDataFactory_, clock_, taskId),
            exporting::ShareContainerVMFactory(
                {.csvSerializer = std::make_shared<exporting::CSVTaskShareSerializer>(),
                 .jsonSerializer = std::make_shared<exporting::JSONShareSerializer>()},
                liveDataFactory_, clipboard_, taskId)));
}

std::unique_ptr<OverviewAdapter> HomeViewSubviewsFactory::makeOverviewView(
    std::optional<base::Uuid> taskId) const {
    return std::make_unique<OverviewAdapter>(std::make_shared<presentation::FocusOverviewViewModel>(
        liveDataFactory_, makeTimeKeepingProvider_(), clock_, calendar_, taskId));
}

std::unique_ptr<AddTaskAdapter> HomeViewSubviewsFactory::makeAddTaskView() const {
    const presentation::AddTaskVMFactory factory(dataOperationsService_);
    return std::make_unique<AddTaskAdapter>(factory.makeViewModel());
}

}  // namespace hearthmark::ui
