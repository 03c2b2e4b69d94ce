// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QString>
#include <memory>

#include "livedata/subscription.h"
#include "presentation/undo_deletion_view_model.h"

namespace hearthmark::ui {

// Hands the undo bar's state to UndoBar.qml. Owns its view model.
class UndoAdapter final : public QObject {
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

 signals:
    void changed();

 private:
    std::shared_ptr<presentation::UndoDeletionViewModel> viewModel_;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
