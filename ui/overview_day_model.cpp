// SPDX-License-Identifier: MIT
#include "ui/overview_day_model.h"

#include <QDateTime>
#include <QLocale>
#include <cmath>
#include <utility>

#include "ui/assign_shown.h"
#include "ui/text_conversion.h"

namespace hearthmark::ui {

namespace {

QString dayText(const presentation::FocusOverviewViewState::Day& day) {
    const base::Seconds unixTime = day.start.sinceReferenceDate() + base::kUnixTimeOfReferenceDate;
    const QDate date = QDateTime::fromSecsSinceEpoch(std::llround(unixTime.count())).date();
    return QLocale().toString(date, QStringLiteral("ddd d MMM")) + QLatin1String(": ") +
           toQString(day.timeSpent);
}

}  // namespace

QList<int> OverviewDayRow::assign(OverviewDayRow&& next) {
    QList<int> changed;
    assignShown(text, std::move(next.text), OverviewDayModel::TextRole, changed);
    assignShown(share, next.share, OverviewDayModel::ShareRole, changed);
    return changed;
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

QVariant OverviewDayModel::data(const QModelIndex& index, int role) const {
    const OverviewDayRow* row = rowAt(index.row());
    if (row == nullptr) {
        return {};
    }
    switch (role) {
        case TextRole:
            return row->text;
        case ShareRole:
            return row->share;
        default:
            return {};
    }
}

QHash<int, QByteArray> OverviewDayModel::roleNames() const {
    return {{TextRole, "text"}, {ShareRole, "share"}};
}

}  // namespace hearthmark::ui
