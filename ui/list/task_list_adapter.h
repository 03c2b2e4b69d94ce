// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>

#include "presentation/tasks_list_view_model.h"
#include "ui/list/task_list_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the task list's view state to TaskListView.qml. Owns its view model.
class TaskListAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged FINAL)
    Q_PROPERTY(hearthmark::ui::TaskListModel* rows READ rows CONSTANT FINAL)

 public:
    explicit TaskListAdapter(std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel);

    bool loaded() const { return loaded_; }
    TaskListModel* rows() { return &rows_; }
    // What the keyboard is best on that comes from elsewhere: the row that came with the state that
    // is being shown, else that of the selected task, or -1.
    Q_INVOKABLE int newestRow() const;

 signals:
    void loadedChanged();
    // From the event loop, once the views have followed all rows of a new state.
    void stateShown();

 private:
    void show() override;

    std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel_;
    TaskListModel rows_;
    int insertedRow_ = -1;
    bool loaded_ = false;
};

}  // namespace hearthmark::ui
