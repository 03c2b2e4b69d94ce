// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QQuickTextDocument>
#include <memory>

#include "presentation/add_task_view_model.h"

namespace hearthmark::ui {

// Hands the add-task sheet its one action. Owns its view model; made anew for each presentation.
class AddTaskAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")

 public:
    explicit AddTaskAdapter(std::shared_ptr<presentation::AddTaskViewModelProtocol> viewModel);

    Q_INVOKABLE void addTask(const QQuickTextDocument* name);

 private:
    std::shared_ptr<presentation::AddTaskViewModelProtocol> viewModel_;
};

}  // namespace hearthmark::ui
