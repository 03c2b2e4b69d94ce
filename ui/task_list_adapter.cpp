// SPDX-License-Identifier: MIT
#include "ui/task_list_adapter.h"

#include <utility>

namespace hearthmark::ui {

TaskListAdapter::TaskListAdapter(std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)),
      subscription_(viewModel_->viewState().subscribeDidChange([this] { show(); })) {
    connect(&rows_, &TaskListModel::rowsInserted, this,
            [this](const QModelIndex& /*parent*/, int first) { insertedRow_ = first; });
    connect(this, &TaskListAdapter::stateShown, this, [this] { insertedRow_ = -1; });
    viewModel_->startObserving();
}

void TaskListAdapter::setShown(bool isShown) {
    isShown_ = isShown;
    show();
}

int TaskListAdapter::newestRow() const {
    if (insertedRow_ >= 0) {
        return insertedRow_;
    }
    const QModelIndexList selected =
        rows_.match(rows_.index(0), TaskListModel::IsSelectedRole, true, 1, Qt::MatchExactly);
    return selected.isEmpty() ? -1 : selected.front().row();
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
