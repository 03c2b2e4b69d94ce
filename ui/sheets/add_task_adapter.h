// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QQuickTextDocument>
#include <memory>

#include "presentation/add_task_view_model.h"

namespace hearthmark::ui {

// Hands the add-task sheet its one action, and whether that is offered. Owns its view model; made
// anew for each presentation.
class AddTaskAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged FINAL)

 public:
    explicit AddTaskAdapter(std::shared_ptr<presentation::AddTaskViewModelProtocol> viewModel);

    // Whether the name that was typed last is more than white space.
    bool canSave() const { return canSave_; }

    Q_INVOKABLE void type(const QQuickTextDocument* name);
    Q_INVOKABLE void addTask(const QQuickTextDocument* name);

 signals:
    void canSaveChanged();

 private:
    std::shared_ptr<presentation::AddTaskViewModelProtocol> viewModel_;
    bool canSave_ = false;
};

}  // namespace hearthmark::ui
