// SPDX-License-Identifier: MIT
#include "ui/home_adapter.h"

#include <utility>

namespace hearthmark::ui {

HomeAdapter::HomeAdapter(std::shared_ptr<presentation::HomeViewModelProtocol> viewModel,
                         HomeViewSubviewsFactory subviewsFactory, std::function<void()> onQuit)
    : viewModel_(std::move(viewModel)),
      subviewsFactory_(std::move(subviewsFactory)),
      onQuit_(std::move(onQuit)),
      taskList_(subviewsFactory_.makeTaskListView()),
      subscription_(
          viewModel_->selectedTaskId().subscribeDidChange([this] { showSelectedTask(); })) {
    showSelectedTask();
}

void HomeAdapter::displayAddSheet() {
    if (!addTask_) {
        addTask_ = subviewsFactory_.makeAddTaskView();
        emit addTaskChanged();
    }
}

void HomeAdapter::dismissAddSheet() {
    replace<AddTaskAdapter>(addTask_, nullptr, &HomeAdapter::addTaskChanged);
}

void HomeAdapter::quit() {
    onQuit_();
}

void HomeAdapter::showSelectedTask() {
    const std::optional<base::Uuid>& selected = viewModel_->selectedTaskId().value();
    if (selected == shownTaskId_) {
        return;
    }
    shownTaskId_ = selected;
    replace(taskDetail_, selected ? subviewsFactory_.makeTaskDetailView(*selected) : nullptr,
            &HomeAdapter::taskDetailChanged);
}

// The view is told while the old adapter still exists, so that no binding looks at one that is
// gone; and the old one is deleted later, since the change may come from a call of its own.
template <class Adapter>
void HomeAdapter::replace(std::unique_ptr<Adapter>& adapter, std::unique_ptr<Adapter> next,
                          void (HomeAdapter::*changed)()) {
    std::unique_ptr<Adapter> old = std::exchange(adapter, std::move(next));
    emit(this->*changed)();
    if (old) {
        old.release()->deleteLater();
    }
}

}  // namespace hearthmark::ui
