// SPDX-License-Identifier: MIT
#include "ui/history/history_bar_model.h"

#include <QLocale>
#include <utility>

#include "ui/text/local_time_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using presentation::HistoryUnit;

constexpr int kHoursOfLabel = 6;
constexpr unsigned kDaysOfWeek = 7;

QString partText(HistoryUnit unit, const base::LocalTime& start) {
    const QLocale locale;
    switch (unit) {
        case HistoryUnit::day:
            return shortTime(toQTime(start), locale);
        case HistoryUnit::week:
        case HistoryUnit::month:
            return locale.toString(toQDate(start.day), QStringLiteral("ddd d MMM"));
        case HistoryUnit::year:
            return locale.toString(toQDate(start.day), QStringLiteral("MMMM yyyy"));
        case HistoryUnit::all:
            return locale.toString(toQDate(start.day), QStringLiteral("yyyy"));
    }
    return {};
}

QString label(HistoryUnit unit, const base::LocalTime& start) {
    const QLocale locale;
    const QDate day = toQDate(start.day);
    const QTime time = toQTime(start);
    switch (unit) {
        case HistoryUnit::day:
            return time.hour() % kHoursOfLabel == 0 ? locale.toString(time.hour()) : QString();
        case HistoryUnit::week:
            return locale.standaloneDayName(day.dayOfWeek(), QLocale::ShortFormat);
        case HistoryUnit::month:
            return unsigned(day.day()) % kDaysOfWeek == 1 ? locale.toString(day.day()) : QString();
        case HistoryUnit::year:
            return locale.standaloneMonthName(day.month(), QLocale::NarrowFormat);
        case HistoryUnit::all:
            return locale.toString(day, QStringLiteral("yy"));
    }
    return {};
}

}  // namespace

const std::vector<RowRole<HistoryBar>>& HistoryBar::roles() {
    static const std::vector kRoles{
        role<&HistoryBar::text>("text"), role<&HistoryBar::label>("label"),
        role<&HistoryBar::share>("share"), role<&HistoryBar::isCurrent>("isCurrent")};
    return kRoles;
}

void HistoryBarModel::show(const presentation::HistoryViewState::View& state) {
    std::vector<HistoryBar> next;
    next.reserve(state.bars.size());
    RowKeys keys;
    for (const auto& bar : state.bars) {
        const QString part = ui::partText(state.range.unit, bar.start);
        const QString timeSpent = toQString(bar.bar.timeSpent);
        next.push_back({.key = keys.next({}),
                        .text = part + QLatin1String(": ") + timeSpent,
                        .label = label(state.range.unit, bar.start),
                        .share = bar.bar.share,
                        .isCurrent = next.size() == state.current,
                        .part = part,
                        .timeSpent = timeSpent});
    }
    update(std::move(next));
}

QString HistoryBarModel::copiedText() const {
    QString text;
    for (const HistoryBar& bar : rows()) {
        text += bar.part + QLatin1Char('\t') + bar.timeSpent + QLatin1Char('\n');
    }
    return text;
}

QString HistoryBarModel::partText(int bar) const {
    const HistoryBar* row = rowAt(bar);
    return row != nullptr ? row->part : QString();
}

}  // namespace hearthmark::ui
