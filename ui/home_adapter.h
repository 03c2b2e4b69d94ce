// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "base/uuid.h"
#include "livedata/subscription.h"
#include "presentation/home_view_model.h"
#include "ui/add_task_adapter.h"
#include "ui/home_view_subviews_factory.h"
#include "ui/task_detail_adapter.h"
#include "ui/task_list_adapter.h"

namespace hearthmark::ui {

// Hands the home screen's state to HomeView.qml: the list, which stays, the detail pane, which is
// made for each selected task, and the add-task sheet, which is made each time it is presented.
// Owns the adapters of all three; the QML engine owns none of them.
class HomeAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(hearthmark::ui::TaskListAdapter* taskList READ taskList CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::TaskDetailAdapter* taskDetail READ taskDetail NOTIFY
                   taskDetailChanged FINAL)
    Q_PROPERTY(hearthmark::ui::AddTaskAdapter* addTask READ addTask NOTIFY addTaskChanged FINAL)

 public:
    HomeAdapter(std::shared_ptr<presentation::HomeViewModelProtocol> viewModel,
                HomeViewSubviewsFactory subviewsFactory, std::function<void()> onQuit);

    TaskListAdapter* taskList() const { return taskList_.get(); }
    TaskDetailAdapter* taskDetail() const { return taskDetail_.get(); }
    // Present while the add-task sheet is displayed.
    AddTaskAdapter* addTask() const { return addTask_.get(); }

    Q_INVOKABLE void displayAddSheet();
    Q_INVOKABLE void dismissAddSheet();
    Q_INVOKABLE void quit();

 signals:
    void taskDetailChanged();
    void addTaskChanged();

 private:
    void showSelectedTask();

    std::shared_ptr<presentation::HomeViewModelProtocol> viewModel_;
    HomeViewSubviewsFactory subviewsFactory_;
    std::function<void()> onQuit_;
    std::unique_ptr<TaskListAdapter> taskList_;
    std::unique_ptr<TaskDetailAdapter> taskDetail_;
    std::unique_ptr<AddTaskAdapter> addTask_;
    std::optional<base::Uuid> shownTaskId_;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
