// SPDX-License-Identifier: MIT
#include "ui/window/home_view_subviews_factory.h"

#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "presentation/view_model_factories.h"
#include "ui/detail/task_detail_subviews_factory.h"

namespace hearthmark::ui {

std::unique_ptr<TaskListAdapter> HomeViewSubviewsFactory::makeTaskListView() const {
    const presentation::TaskListVMFactory factory(dataOperationsService, liveDataFactory,
                                                  makeTimeKeepingProvider(), clock,
                                                  mutableSelectedTaskId);
    return std::make_unique<TaskListAdapter>(factory.makeViewModel());
}

std::unique_ptr<TaskDetailAdapter> HomeViewSubviewsFactory::makeTaskDetailView(
    const base::Uuid& taskId) const {
    const presentation::TaskDetailVMFactory factory(dataOperationsService, liveDataFactory, taskId,
                                                    makeTimeKeepingProvider(), clock);
    return std::make_unique<TaskDetailAdapter>(
        factory.makeViewModel(),
        TaskDetailSubviewsFactory{
            .notesVMFactory = {dataOperationsService, liveDataFactory, clock, drafts, taskId},
            .correctIntervalVMFactory = {.dataOperationsService = dataOperationsService,
                                         .liveDataFactory = liveDataFactory,
                                         .clock = clock,
                                         .calendar = calendar,
                                         .taskId = taskId},
            .textEditVMFactory = {dataOperationsService, liveDataFactory, drafts, taskId},
            .shareVMFactory = exporting::ShareContainerVMFactory(
                {.csvSerializer = std::make_shared<exporting::CSVTaskShareSerializer>(),
                 .jsonSerializer = std::make_shared<exporting::JSONShareSerializer>()},
                liveDataFactory, clipboard, taskId)});
}

std::unique_ptr<OverviewAdapter> HomeViewSubviewsFactory::makeOverviewView(
    std::optional<base::Uuid> taskId) const {
    return std::make_unique<OverviewAdapter>(std::make_shared<presentation::FocusOverviewViewModel>(
        liveDataFactory, makeTimeKeepingProvider(), clock, calendar, taskId));
}

std::unique_ptr<HistoryAdapter> HomeViewSubviewsFactory::makeHistoryView() const {
    return std::make_unique<HistoryAdapter>(
        std::make_shared<presentation::HistoryViewModel>(
            presentation::HistoryViewModel::Parts{.liveDataFactory = liveDataFactory,
                                                  .timeKeepingProvider = makeTimeKeepingProvider(),
                                                  .clock = clock,
                                                  .calendar = calendar,
                                                  .firstDayOfWeek = firstDayOfWeek,
                                                  .choice = historyChoice}),
        mutableSelectedTaskId, clipboard);
}

std::unique_ptr<AddTaskAdapter> HomeViewSubviewsFactory::makeAddTaskView() const {
    const presentation::AddTaskVMFactory factory(dataOperationsService);
    return std::make_unique<AddTaskAdapter>(factory.makeViewModel());
}

}  // namespace hearthmark::ui
