// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <vector>

#include "presentation/focus_overview_view_model.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// A bar of the chart.
struct OverviewDayRow {
    static const std::vector<RowRole<OverviewDayRow>>& roles();

    // Its place from the left.
    RowKey key;
    // "Sat 21 Nov: 1:05:00".
    QString text;
    double share = 0;
};

// The bars of the chart, oldest day first.
class OverviewDayModel : public HEARTHMARK_ROW_LIST_MODEL(OverviewDayRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the overview adapter")

 public:
    using RowListModel::RowListModel;

    void show(const std::vector<presentation::FocusOverviewViewState::Day>& days);
};

}  // namespace hearthmark::ui
