// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>

#include "presentation/history_view_state.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// A task in the history's table.
struct HistoryTableRow {
    static const std::vector<RowRole<HistoryTableRow>>& roles();

    RowKey key;
    QString taskName;
    QString timeSpent;
    QString share;
    QString focuses;
    // All but the name, in words.
    QString description;
    bool ticks = false;
};

// The rows of the history's table. A tick touches those alone that it changes.
class HistoryRowModel : public HEARTHMARK_ROW_LIST_MODEL(HistoryTableRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the history adapter")

 public:
    using RowListModel::RowListModel;

    void show(const presentation::HistoryViewState::Rows& next);

 private:
    presentation::HistoryViewState::Rows shown_;
};

}  // namespace hearthmark::ui
