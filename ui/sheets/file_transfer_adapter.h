// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>

#include "export/file_transfer_view_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the state of exports and imports, as texts, to FileTransferSheet.qml.
class FileTransferAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool presented READ isPresented NOTIFY changed FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString detail READ detail NOTIFY changed FINAL)
    Q_PROPERTY(bool isAsking READ isAsking NOTIFY changed FINAL)
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY changed FINAL)
    Q_PROPERTY(QString fault READ fault NOTIFY changed FINAL)
    Q_PROPERTY(bool isWorking READ isWorking NOTIFY changed FINAL)
    Q_PROPERTY(double progress READ progress NOTIFY changed FINAL)
    Q_PROPERTY(QString acceptText READ acceptText NOTIFY changed FINAL)
    Q_PROPERTY(QString dismissText READ dismissText NOTIFY changed FINAL)

 public:
    // What is shown in the history is written as.
    enum Form { Table, Calendar };
    Q_ENUM(Form)

    explicit FileTransferAdapter(std::shared_ptr<exporting::FileTransferViewModel> viewModel);

    // For parts in C++, and for previews.
    exporting::FileTransferViewModel& viewModel() const { return *viewModel_; }

    bool isPresented() const { return state().isPresented; }
    QString title() const;
    QString detail() const;
    bool isAsking() const;
    QString path() const;
    void setPath(const QString& path);
    QString fault() const;
    bool isWorking() const;
    double progress() const { return state().share; }
    // Empty where there is nothing to agree to.
    QString acceptText() const;
    QString dismissText() const;

    Q_INVOKABLE void exportEverything() { viewModel_->exportEverything(); }
    // The intervals begun in [from, to), in seconds since the reference date.
    Q_INVOKABLE void exportShown(double from, double to, Form form);
    // Named so since "import" is a word of the language.
    Q_INVOKABLE void importEverything() { viewModel_->import(); }
    Q_INVOKABLE void accept() { viewModel_->accept(); }
    // What Enter does: agrees, or closes what only tells something.
    Q_INVOKABLE void enter();
    Q_INVOKABLE void dismiss() { viewModel_->dismiss(); }

 private:
    const exporting::FileTransferViewState& state() const {
        return viewModel_->viewState().value();
    }
    QString toldText() const;

    std::shared_ptr<exporting::FileTransferViewModel> viewModel_;
};

}  // namespace hearthmark::ui
