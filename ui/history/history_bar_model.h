// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>

#include "presentation/history_view_state.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// A bar of the history's chart.
struct HistoryBar {
    static const std::vector<RowRole<HistoryBar>>& roles();

    // Its place from the left.
    RowKey key;
    // "Sat 21 Nov: 1:05:00".
    QString text;
    // Below it; of many bars only some have one.
    QString label;
    double share = 0;
    bool isCurrent = false;
    // As a copied text has it.
    QString part = {};
    QString timeSpent = {};
};

// The bars of the history's chart, oldest first.
class HistoryBarModel : public HEARTHMARK_ROW_LIST_MODEL(HistoryBar) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the history adapter")

 public:
    using RowListModel::RowListModel;

    void show(const presentation::HistoryViewState::View& state);

    // A line for each.
    QString copiedText() const;
    // What of the bar stands before its time; empty where there is no such bar.
    QString partText(int bar) const;
};

}  // namespace hearthmark::ui
