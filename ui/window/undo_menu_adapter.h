// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>

#include "presentation/undo_menu_view_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the menu what can be taken back and done again. Owns its view model.
class UndoMenuAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    // Empty where there is nothing.
    Q_PROPERTY(QString undoText READ undoText NOTIFY changed FINAL)
    Q_PROPERTY(QString redoText READ redoText NOTIFY changed FINAL)

 public:
    explicit UndoMenuAdapter(std::shared_ptr<presentation::UndoMenuViewModel> viewModel);

    QString undoText() const;
    QString redoText() const;

    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();

 private:
    std::shared_ptr<presentation::UndoMenuViewModel> viewModel_;
};

}  // namespace hearthmark::ui
