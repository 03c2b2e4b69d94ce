// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>

#include "presentation/undo_deletion_view_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the undo bar's state to UndoBar.qml. Owns its view model.
class UndoAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool presented READ isPresented NOTIFY changed FINAL)
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)

 public:
    explicit UndoAdapter(std::shared_ptr<presentation::UndoDeletionViewModel> viewModel);

    bool isPresented() const { return viewModel_->viewState().value().has_value(); }
    QString text() const;

    Q_INVOKABLE void undo();

 private:
    std::shared_ptr<presentation::UndoDeletionViewModel> viewModel_;
};

}  // namespace hearthmark::ui
