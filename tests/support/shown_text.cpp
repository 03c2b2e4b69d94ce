// SPDX-License-Identifier: MIT
#include "support/shown_text.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "presentation/view_model_factories.h"
#include "store/note.h"
#include "store/time_texts.h"
#include "support/test_store.h"

namespace hearthmark::tests {

using namespace presentation;

std::string text(const TaskListViewState::View& list) {
    std::string text;
    const auto row = [&text](const auto& item) {
        text += (item.isSelected ? "*" : "") + item.taskName + ' ' + item.timeSpent + ' ';
    };
    for (const auto& item : list.runningItems) {
        row(item);
        for (const auto& interval : item.intervalViewStates) {
            text += '(' + interval.timeSpent + ' ' + interval.button + ") ";
        }
    }
    text += "|";
    for (const auto& item : list.nonRunningItems) {
        text += ' ';
        row(item);
        text += item.button;
    }
    return text;
}

std::string text(const TaskDetailViewState::View& task) {
    std::string text = (task.canStartFocus ? "+" : "") + task.taskName + ' ' + task.totalTimeSpent;
    for (const auto& row : task.runningIntervals) {
        text += ' ' + row.totalTimeSpent + (row.onExtend ? "+" : "");
        if (!(row.progress >= 0 && row.progress <= 1)) {
            throw std::logic_error(text);
        }
    }
    text += " |";
    for (const auto& row : task.nonRunningIntervals) {
        text += ' ' + row.totalTimeSpent;
        text += row.rest ? '>' + store::formattedDuration(*row.rest).value() : "";
    }
    return text;
}

std::string text(const NotesViewState::View& notes) {
    std::string text;
    for (const auto& note : notes.committedNotes) {
        text += note.noteText + ' ';
    }
    return text;
}

std::string text(const FocusOverviewViewState::View& overview) {
    std::string text;
    for (const auto& day : overview.days) {
        text += day.timeSpent == "0" ? "" : day.timeSpent + ' ';
        if (!(day.share >= 0 && day.share <= 1)) {
            throw std::logic_error(text);
        }
    }
    return text + '(' + overview.today + ')';
}

std::string shownText(const std::shared_ptr<objectstore::PersistentContainer>& container,
                      base::Date now) {
    const auto clock = std::make_shared<FakeClock>();
    clock->time = now;
    const auto timers = std::make_shared<FakeTimeKeepingProvider>();
    const auto liveData = std::make_shared<store::LiveDataProvidingFactory>(container);
    const auto service = std::make_shared<store::DataOperationsService>(*liveData, container, clock,
                                                                        base::FatalErrorHandler());
    const auto shown = [](const auto& model) {
        model->startObserving();
        return text(model->viewState().value().value()) + '\n';
    };
    const auto drafts = std::make_shared<NoteDrafts>(service, *liveData);
    std::string all = shown(TaskListVMFactory(service, liveData, timers, clock,
                                              std::make_shared<SelectedTaskId>(std::nullopt))
                                .makeViewModel());
    all += shown(std::make_shared<FocusOverviewViewModel>(
        liveData, timers, clock, std::make_shared<base::LocalCalendar>(), std::nullopt));
    for (const store::Task& task : container->viewContext().objects<store::Task>()) {
        const base::Uuid id = task.id().value_or(base::Uuid());
        all += shown(TaskDetailVMFactory(service, liveData, id, timers, clock).makeViewModel());
        all += shown(NotesVMFactory(service, liveData, clock, drafts, id).makeViewModel());
        const std::string json = exporting::JSONShareSerializer().serialize(task);
        all += (json.empty() ? json : nlohmann::ordered_json::parse(json).dump()) + '\n';
        all += exporting::CSVTaskShareSerializer().serialize(task) + '\n';
    }
    return all;
}

}  // namespace hearthmark::tests
