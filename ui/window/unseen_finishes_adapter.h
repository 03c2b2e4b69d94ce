// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>

#include "presentation/selected_task_id.h"
#include "services/unseen_finishes.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands to the window what the desktop did not tell the person.
class UnseenFinishesAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool presented READ isPresented NOTIFY changed FINAL)
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    Q_PROPERTY(bool canShow READ canShow NOTIFY changed FINAL)

 public:
    UnseenFinishesAdapter(std::shared_ptr<services::UnseenFinishes> finishes,
                          std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId);

    bool isPresented() const { return !finishes_->value().empty(); }
    // Of the latest, with the number of those before it.
    QString text() const;

    // Whether the latest is of a task; else it is a notice of the program's own.
    bool canShow() const;

    // Selects the latest one's task.
    Q_INVOKABLE void showTask();
    Q_INVOKABLE void dismiss() { finishes_->setValue({}); }

 private:
    std::shared_ptr<services::UnseenFinishes> finishes_;
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId_;
};

}  // namespace hearthmark::ui
