// SPDX-License-Identifier: MIT
#include "ui/sheets/backup_list_model.h"

#include <QDate>
#include <QLocale>
#include <QTime>
#include <utility>

#include "ui/sheets/restore_adapter.h"

namespace hearthmark::ui {

namespace {

QString dateText(const store::StoreBackup& backup) {
    const QLocale locale;
    QString day = locale.toString(QDate(static_cast<int>(backup.day.year()),
                                        static_cast<int>(unsigned(backup.day.month())),
                                        static_cast<int>(unsigned(backup.day.day()))));
    if (!backup.timeOfDay) {
        return day;
    }
    const auto seconds = static_cast<int>(backup.timeOfDay->count());
    const QTime time = QTime(0, 0).addSecs(seconds);
    return BackupListModel::tr("%1, %2").arg(day, locale.toString(time, QLocale::ShortFormat));
}

QString detailText(const presentation::RestoreBackupViewState::Item& item) {
    return item.counts ? BackupListModel::tr("%1, %2").arg(tasksText(item.counts->tasks),
                                                           intervalsText(item.counts->intervals))
                       : BackupListModel::tr("Cannot be read");
}

}  // namespace

const std::vector<RowRole<BackupRow>>& BackupRow::roles() {
    static const std::vector kRoles{role<&BackupRow::text>("text"),
                                    role<&BackupRow::detail>("detail"),
                                    role<&BackupRow::isSelected>("isSelected")};
    return kRoles;
}

void BackupListModel::show(const presentation::RestoreBackupViewState& state) {
    std::vector<BackupRow> rows;
    RowKeys keys;
    for (const presentation::RestoreBackupViewState::Item& item : state.items) {
        rows.push_back({.key = keys.next({}),
                        .text = dateText(item.backup),
                        .detail = detailText(item),
                        .isSelected = rows.size() == state.selected});
    }
    update(std::move(rows));
}

}  // namespace hearthmark::ui
