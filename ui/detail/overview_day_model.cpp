// SPDX-License-Identifier: MIT
#include "ui/detail/overview_day_model.h"

#include <QDateTime>
#include <QLocale>
#include <cmath>
#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

QString dayText(const presentation::FocusOverviewViewState::Day& day) {
    const base::Seconds unixTime = day.start.sinceReferenceDate() + base::kUnixTimeOfReferenceDate;
    const QDate date = QDateTime::fromSecsSinceEpoch(std::llround(unixTime.count())).date();
    return QLocale().toString(date, QStringLiteral("ddd d MMM")) + QLatin1String(": ") +
           toQString(day.timeSpent);
}

}  // namespace

const std::vector<RowRole<OverviewDayRow>>& OverviewDayRow::roles() {
    static const std::vector kRoles{role<&OverviewDayRow::text>("text"),
                                    role<&OverviewDayRow::share>("share")};
    return kRoles;
}

void OverviewDayModel::show(const std::vector<presentation::FocusOverviewViewState::Day>& days) {
    std::vector<OverviewDayRow> rows;
    rows.reserve(days.size());
    RowKeys keys;
    for (const presentation::FocusOverviewViewState::Day& day : days) {
        rows.push_back({.key = keys.next({}), .text = dayText(day), .share = day.share});
    }
    update(std::move(rows));
}

}  // namespace hearthmark::ui
