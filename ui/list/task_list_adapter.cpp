// SPDX-License-Identifier: MIT
#include "ui/list/task_list_adapter.h"

#include <utility>

namespace hearthmark::ui {

TaskListAdapter::TaskListAdapter(std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    connect(&rows_, &TaskListModel::rowsInserted, this,
            [this](const QModelIndex& /*parent*/, int first) { insertedRow_ = first; });
    connect(this, &TaskListAdapter::stateShown, this, [this] { insertedRow_ = -1; });
    viewModel_->startObserving();
}

int TaskListAdapter::newestRow() const {
    return insertedRow_ >= 0 ? insertedRow_ : rows_.selectedRow();
}

void TaskListAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state) {
        return;
    }
    rows_.show(*state);
    if (replace(loaded_, true)) {
        emit loadedChanged();
    }
    QMetaObject::invokeMethod(this, &TaskListAdapter::stateShown, Qt::QueuedConnection);
}

}  // namespace hearthmark::ui
