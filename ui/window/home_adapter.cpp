// SPDX-License-Identifier: MIT
#include "ui/window/home_adapter.h"

#include <QMetaProperty>
#include <utility>

#include "ui/state/replace_adapter.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

HomeAdapter::HomeAdapter(std::shared_ptr<presentation::HomeViewModelProtocol> viewModel,
                         HomeViewSubviewsFactory subviewsFactory, HomeParts parts,
                         std::function<void()> onQuit)
    : HomeParts(std::move(parts)),
      viewModel_(std::move(viewModel)),
      subviewsFactory_(std::move(subviewsFactory)),
      onQuit_(std::move(onQuit)),
      taskList_(subviewsFactory_.makeTaskListView()),
      subscription_(
          viewModel_->selectedTaskId().subscribeDidChange([this] { showSelectedTask(); })) {
    showSelectedTask();
    if (!overview_) {
        showOverview();
    }
}

void HomeAdapter::displayAddSheet() {
    if (!addTask_) {
        addTask_ = subviewsFactory_.makeAddTaskView();
        emit isAddSheetDisplayedChanged();
    }
}

void HomeAdapter::dismissAddSheet() {
    if (addTask_) {
        replaceAdapter<AddTaskAdapter>(addTask_, nullptr,
                                       [this] { emit isAddSheetDisplayedChanged(); });
    }
}

void HomeAdapter::openHistory() {
    if (!history_) {
        history_ = subviewsFactory_.makeHistoryView();
        history_->setShown(isShown_);
        emit historyChanged();
    }
}

void HomeAdapter::closeHistory() {
    if (history_) {
        replaceAdapter<HistoryAdapter>(history_, nullptr, [this] { emit historyChanged(); });
    }
}

void HomeAdapter::openHistoryOf(int dayOfOverview) {
    const auto start = overview_->dayStart(dayOfOverview);
    const auto day = start ? subviewsFactory_.calendar->localDay(*start) : std::nullopt;
    if (day) {
        closeHistory();
        subviewsFactory_.historyChoice->unit = presentation::HistoryUnit::day;
        subviewsFactory_.historyChoice->day = day;
        openHistory();
    }
}

void HomeAdapter::startShortFocus() {
    if (taskDetail_) {
        taskDetail_->startShortFocus();
    }
}

void HomeAdapter::setShown(bool isShown) {
    isShown_ = isShown;
    beat->setResting(!isShown);
    const QMetaObject& properties = *metaObject();
    for (int i = properties.propertyOffset(); i < properties.propertyCount(); ++i) {
        if (auto* const part = properties.property(i).read(this).value<StateAdapter*>()) {
            part->setShown(isShown);
        }
    }
}

void HomeAdapter::showSelectedTask() {
    // Whoever chooses a task wants to see it, the one that was selected before, too.
    closeHistory();
    const std::optional<base::Uuid>& selected = viewModel_->selectedTaskId().value();
    if (selected == shownTaskId_) {
        return;
    }
    shownTaskId_ = selected;
    showOverview();
    auto taskDetail = selected ? subviewsFactory_.makeTaskDetailView(*selected) : nullptr;
    if (taskDetail) {
        // The overview looks at the calendar each minute.
        const auto showToday = [detail = taskDetail.get(), overview = overview_.get()] {
            detail->showToday(overview->todayStart());
        };
        connect(overview_.get(), &OverviewAdapter::todayStartChanged, taskDetail.get(), showToday);
        showToday();
    }
    replaceAdapter(taskDetail_, std::move(taskDetail), [this] { emit taskDetailChanged(); });
    if (taskDetail_) {
        taskDetail_->setShown(isShown_);
    }
}

void HomeAdapter::showOverview() {
    replaceAdapter(overview_, subviewsFactory_.makeOverviewView(shownTaskId_),
                   [this] { emit overviewChanged(); });
    connect(overview_.get(), &OverviewAdapter::dayOpened, this, &HomeAdapter::openHistoryOf);
    overview_->setShown(isShown_);
}

}  // namespace hearthmark::ui
