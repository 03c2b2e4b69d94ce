// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "base/calendar.h"
#include "base/clock.h"
#include "base/uuid.h"
#include "presentation/note_drafts.h"
#include "presentation/selected_task_id.h"
#include "services/ports/clipboard.h"
#include "services/ports/time_keeping.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"
#include "ui/detail/overview_adapter.h"
#include "ui/detail/task_detail_adapter.h"
#include "ui/history/history_adapter.h"
#include "ui/list/task_list_adapter.h"
#include "ui/sheets/add_task_adapter.h"

namespace hearthmark::ui {

// Makes the views beside and over each other on the home screen, each with a model of its own. A
// value.
struct HomeViewSubviewsFactory {
    std::unique_ptr<TaskListAdapter> makeTaskListView() const;
    std::unique_ptr<TaskDetailAdapter> makeTaskDetailView(const base::Uuid& taskId) const;
    std::unique_ptr<AddTaskAdapter> makeAddTaskView() const;
    // Of one task, or of all.
    std::unique_ptr<OverviewAdapter> makeOverviewView(std::optional<base::Uuid> taskId) const;

    // Of the range that was last looked at.
    std::unique_ptr<HistoryAdapter> makeHistoryView() const;

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory;
    std::shared_ptr<const base::Clock> clock;
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId;
    std::shared_ptr<presentation::NoteDrafts> drafts;
    // Each view keeps its time by a provider of its own.
    services::TimeKeepingProviderMaker makeTimeKeepingProvider;
    std::shared_ptr<services::Clipboard> clipboard;
    std::shared_ptr<const base::Calendar> calendar;
    // As the locale has it.
    std::chrono::weekday firstDayOfWeek;
    std::shared_ptr<presentation::HistoryChoice> historyChoice =
        std::make_shared<presentation::HistoryChoice>();
};

}  // namespace hearthmark::ui
