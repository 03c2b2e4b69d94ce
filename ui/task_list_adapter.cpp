// SPDX-License-Identifier: MIT
#include "ui/task_list_adapter.h"

#include <utility>

namespace hearthmark::ui {

TaskListAdapter::TaskListAdapter(std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)),
      subscription_(viewModel_->viewState().subscribeDidChange([this] { show(); })) {
    viewModel_->startObserving();
}

void TaskListAdapter::setShown(bool isShown) {
    isShown_ = isShown;
    show();
}

void TaskListAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state || !isShown_) {
        return;
    }
    rows_.show(*state);
    if (!loaded_) {
        loaded_ = true;
        emit loadedChanged();
    }
    QMetaObject::invokeMethod(this, &TaskListAdapter::stateShown, Qt::QueuedConnection);
}

}  // namespace hearthmark::ui
