// SPDX-License-Identifier: MIT
#include "ui/window/home_adapter.h"

#include <utility>

#include "ui/state/replace_adapter.h"

namespace hearthmark::ui {

HomeAdapter::HomeAdapter(std::shared_ptr<presentation::HomeViewModelProtocol> viewModel,
                         HomeViewSubviewsFactory subviewsFactory, Parts parts,
                         std::function<void()> onQuit)
    : viewModel_(std::move(viewModel)),
      subviewsFactory_(std::move(subviewsFactory)),
      parts_(std::move(parts)),
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

void HomeAdapter::startShortFocus() {
    if (taskDetail_) {
        taskDetail_->startShortFocus();
    }
}

void HomeAdapter::setShown(bool isShown) {
    isShown_ = isShown;
    parts_.beat->setResting(!isShown);
    taskList_->setShown(isShown);
    if (taskDetail_) {
        taskDetail_->setShown(isShown);
    }
    overview_->setShown(isShown);
    parts_.focusAnnouncement->setShown(isShown);
}

void HomeAdapter::showSelectedTask() {
    const std::optional<base::Uuid>& selected = viewModel_->selectedTaskId().value();
    if (selected == shownTaskId_) {
        return;
    }
    shownTaskId_ = selected;
    showOverview();
    replaceAdapter(taskDetail_, selected ? subviewsFactory_.makeTaskDetailView(*selected) : nullptr,
                   [this] { emit taskDetailChanged(); });
    if (taskDetail_) {
        taskDetail_->setShown(isShown_);
    }
}

void HomeAdapter::showOverview() {
    replaceAdapter(overview_, subviewsFactory_.makeOverviewView(shownTaskId_),
                   [this] { emit overviewChanged(); });
    overview_->setShown(isShown_);
}

}  // namespace hearthmark::ui
