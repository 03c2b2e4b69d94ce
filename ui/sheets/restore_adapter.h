// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <cstdint>
#include <memory>

#include "presentation/restore_backup_view_model.h"
#include "ui/sheets/backup_list_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// "1 task", "12 tasks", and so on.
QString tasksText(std::int64_t count);
QString intervalsText(std::int64_t count);
QString notesText(std::int64_t count);

// Hands the restore sheet's state to RestoreSheet.qml. Owns its view model.
class RestoreAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(hearthmark::ui::BackupListModel* rows READ rows CONSTANT FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    Q_PROPERTY(bool canRestore READ canRestore NOTIFY changed FINAL)
    Q_PROPERTY(QString changes READ changes NOTIFY changed FINAL)
    Q_PROPERTY(QString fault READ fault NOTIFY changed FINAL)

 public:
    explicit RestoreAdapter(std::shared_ptr<presentation::RestoreBackupViewModel> viewModel);

    BackupListModel* rows() { return &rows_; }
    bool isEmpty() const { return state().items.empty(); }
    bool canRestore() const { return state().changes.has_value(); }
    // By the selected backup, in lines.
    QString changes() const;
    QString fault() const;

    // Called each time that the sheet opens.
    Q_INVOKABLE void load() { viewModel_->load(); }
    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void restore() { viewModel_->restore(); }

 private:
    void show() override;
    const presentation::RestoreBackupViewState& state() const {
        return viewModel_->viewState().value();
    }

    std::shared_ptr<presentation::RestoreBackupViewModel> viewModel_;
    BackupListModel rows_;
};

}  // namespace hearthmark::ui
