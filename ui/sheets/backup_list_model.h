// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <vector>

#include "presentation/restore_backup_view_model.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// A backup in the list.
struct BackupRow {
    static const std::vector<RowRole<BackupRow>>& roles();

    // Its place from above.
    RowKey key;
    // "Saturday, 21 November 2026", with a time where the day has several.
    QString text;
    // "12 tasks, 340 intervals".
    QString detail;
    bool isSelected = false;
};

// The backups that can be restored, in the order of the state.
class BackupListModel : public HEARTHMARK_ROW_LIST_MODEL(BackupRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the restore adapter")

 public:
    using RowListModel::RowListModel;

    void show(const presentation::RestoreBackupViewState& state);
};

}  // namespace hearthmark::ui
