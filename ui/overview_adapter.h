// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QString>
#include <memory>

#include "livedata/subscription.h"
#include "presentation/focus_overview_view_model.h"
#include "ui/overview_day_model.h"

namespace hearthmark::ui {

// Hands the overview of the last days to FocusChart.qml. Owns its view model.
class OverviewAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(QString today READ today NOTIFY todayChanged FINAL)
    Q_PROPERTY(hearthmark::ui::OverviewDayModel* days READ days CONSTANT FINAL)

 public:
    explicit OverviewAdapter(std::shared_ptr<presentation::FocusOverviewViewModel> viewModel);

    // Follows the state, which may change each second, only while the window is shown. It is at
    // first.
    void setShown(bool isShown);

    QString today() const { return today_; }
    OverviewDayModel* days() { return &days_; }

 signals:
    void todayChanged();

 private:
    void show();

    std::shared_ptr<presentation::FocusOverviewViewModel> viewModel_;
    QString today_;
    OverviewDayModel days_;
    bool isShown_ = true;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
