// SPDX-License-Identifier: MIT
#include "ui/interval_list_model.h"

#include "ui/assign_shown.h"

namespace hearthmark::ui {

QList<int> IntervalRow::assign(IntervalRow&& next) {
    QList<int> changed;
    assignShown(timeSpent, std::move(next.timeSpent), IntervalListModel::TimeSpentRole, changed);
    assignShown(button, std::move(next.button), IntervalListModel::ButtonRole, changed);
    assignShown(progress, next.progress, IntervalListModel::ProgressRole, changed);
    onButtonTap = std::move(next.onButtonTap);
    onDelete = std::move(next.onDelete);
    return changed;
}

QVariant IntervalListModel::data(const QModelIndex& index, int role) const {
    const IntervalRow* row = rowAt(index.row());
    if (row == nullptr) {
        return {};
    }
    switch (role) {
        case TimeSpentRole:
            return row->timeSpent;
        case ButtonRole:
            return row->button;
        case ProgressRole:
            return row->progress;
        default:
            return {};
    }
}

QHash<int, QByteArray> IntervalListModel::roleNames() const {
    return {{TimeSpentRole, "timeSpent"}, {ButtonRole, "button"}, {ProgressRole, "progress"}};
}

void IntervalListModel::tapButton(int row) const {
    if (const IntervalRow* tapped = rowAt(row)) {
        run(tapped->onButtonTap);
    }
}

void IntervalListModel::deleteRow(int row) const {
    if (const IntervalRow* deleted = rowAt(row)) {
        run(deleted->onDelete);
    }
}

}  // namespace hearthmark::ui
