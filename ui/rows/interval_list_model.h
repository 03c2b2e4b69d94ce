// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>

#include "livedata/block.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// One interval as a line: its text and what can be done with it. An absent action does nothing.
struct IntervalRow {
    static const std::vector<RowRole<IntervalRow>>& roles();

    RowKey key;
    QString timeSpent;
    QString button;
    // Towards its maximum, from 0 to 1.
    double progress = 0;
    // When it began, and the button that gives it more time; of the detail pane alone.
    QString began{};
    QString extension{};
    livedata::Action onButtonTap;
    livedata::Action onDelete;
    livedata::Action onExtend{};
};

// The interval lines of one task, in the list and in the detail pane.
class IntervalListModel : public HEARTHMARK_ROW_LIST_MODEL(IntervalRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the adapters")

 public:
    using RowListModel::RowListModel;

    Q_INVOKABLE void tapButton(int row) const;
    Q_INVOKABLE void deleteRow(int row) const;
    Q_INVOKABLE void extendRow(int row) const;
};

}  // namespace hearthmark::ui
