// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>
#include <optional>

#include "presentation/focus_overview_view_model.h"
#include "ui/detail/overview_day_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the overview of the last days to FocusChart.qml. Owns its view model.
class OverviewAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(QString today READ today NOTIFY todayChanged FINAL)
    Q_PROPERTY(hearthmark::ui::OverviewDayModel* days READ days CONSTANT FINAL)

 public:
    explicit OverviewAdapter(std::shared_ptr<presentation::FocusOverviewViewModel> viewModel);

    QString today() const { return today_; }
    OverviewDayModel* days() { return &days_; }
    // The history of the day with that bar is wanted.
    Q_INVOKABLE void openDay(int day) { emit dayOpened(day); }
    // When today began; absent where the clock is out of all calendars.
    std::optional<base::Date> todayStart() const { return todayStart_; }
    // Absent where a view asks with an index of an older state.
    std::optional<base::Date> dayStart(int day) const;

 signals:
    void todayChanged();
    // Another day has come, or the time zone is another.
    void todayStartChanged();
    void dayOpened(int day);

 private:
    void show() override;

    std::shared_ptr<presentation::FocusOverviewViewModel> viewModel_;
    QString today_;
    std::optional<base::Date> todayStart_;
    OverviewDayModel days_;
};

}  // namespace hearthmark::ui
