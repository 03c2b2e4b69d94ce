// SPDX-License-Identifier: MIT
#include "ui/history/history_adapter.h"

#include <QBuffer>
#include <QLocale>
#include <utility>

#include "ui/text/local_time_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using presentation::HistoryUnit;
using namespace std::chrono_literals;

QString titleOf(const presentation::HistoryRange& range) {
    const QLocale locale;
    const QDate first = toQDate(range.first);
    switch (range.unit) {
        case HistoryUnit::day:
            return locale.toString(first, QStringLiteral("ddd d MMM yyyy"));
        case HistoryUnit::week: {
            constexpr int kLastDay = 6;
            const QDate last = first.addDays(kLastDay);
            const QString format = first.year() == last.year() ? QStringLiteral("d MMM")
                                                               : QStringLiteral("d MMM yyyy");
            return locale.toString(first, format) + QStringLiteral(" – ") +
                   locale.toString(last, QStringLiteral("d MMM yyyy"));
        }
        case HistoryUnit::month:
            return locale.standaloneMonthName(first.month()) + QLatin1Char(' ') +
                   locale.toString(first, QStringLiteral("yyyy"));
        case HistoryUnit::year:
            return locale.toString(first, QStringLiteral("yyyy"));
        case HistoryUnit::all:
            return range.years == 1
                       ? locale.toString(first, QStringLiteral("yyyy"))
                       : locale.toString(first, QStringLiteral("yyyy")) + QStringLiteral(" – ") +
                             locale.toString(first.addYears(range.years - 1),
                                             QStringLiteral("yyyy"));
    }
    return {};
}

int indexOf(std::optional<std::size_t> place) {
    return place ? static_cast<int>(*place) : -1;
}

}  // namespace

HistoryAdapter::HistoryAdapter(std::shared_ptr<presentation::HistoryViewModel> viewModel,
                               std::shared_ptr<presentation::SelectedTaskId> selectedTaskId,
                               std::shared_ptr<services::Clipboard> clipboard)
    : viewModel_(std::move(viewModel)),
      selectedTaskId_(std::move(selectedTaskId)),
      clipboard_(std::move(clipboard)) {
    follow(viewModel_->viewState());
    viewModel_->startObserving();
}

void HistoryAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state) {
        return;
    }
    bars_.show(*state);
    rows_.show(state->rows);
    const int chosen = indexOf(state->chosen);
    const QString totalOf = chosen < 0 ? tr("Total: %1") : bars_.partText(chosen) + ": %1";
    const QLocale locale;
    QStringList weekdays;
    QStringList means;
    for (const auto& mean : state->weekdayMeans) {
        weekdays += locale.standaloneDayName(static_cast<int>(mean.weekday.iso_encoding()),
                                             QLocale::ShortFormat);
        means += toQString(mean.timeSpent);
    }
    const base::Seconds begin = state->span ? state->span->begin.sinceReferenceDate() : 0s;
    const base::Seconds end = state->span ? state->span->end.sinceReferenceDate() : 0s;
    if (replace(shown_, {.title = titleOf(state->range),
                         .total = totalOf.arg(toQString(state->total)),
                         .unit = static_cast<int>(state->range.unit),
                         .canGoBack = state->canGoBack,
                         .canGoForward = state->canGoForward,
                         .holdsToday = state->holdsToday,
                         .chosen = chosen,
                         .current = indexOf(state->current),
                         .begin = begin.count(),
                         .end = end.count(),
                         .sortedBy = static_cast<int>(state->sortedBy),
                         .isAscending = state->isAscending,
                         .canExport = !state->rows.empty(),
                         .weekdays = weekdays,
                         .weekdayMeans = means})) {
        emit changed();
    }
}

void HistoryAdapter::setUnit(int unit) {
    viewModel_->setUnit(static_cast<HistoryUnit>(unit));
}

void HistoryAdapter::choose(int bar) {
    viewModel_->choose(static_cast<std::size_t>(bar));
}

void HistoryAdapter::sortBy(int column) {
    viewModel_->sortBy(static_cast<presentation::HistoryViewState::Column>(column));
}

void HistoryAdapter::openTask(int row) {
    const auto& state = viewModel_->viewState().value();
    const auto place = static_cast<std::size_t>(row);
    if (state && row >= 0 && place < state->rows.size() && state->rows[place]->taskId) {
        selectedTaskId_->setValue(state->rows[place]->taskId);
    }
}

void HistoryAdapter::copy(const QImage& picture) {
    QByteArray png;
    QBuffer buffer(&png);
    picture.save(&buffer, "PNG");
    QString text = shown_.title + QLatin1Char('\n') + bars_.copiedText() + shown_.total;
    for (qsizetype day = 0; day < shown_.weekdays.size(); ++day) {
        text +=
            QLatin1Char('\n') + shown_.weekdays[day] + QLatin1Char('\t') + shown_.weekdayMeans[day];
    }
    clipboard_->setStringAndPicture(toUtf8(text), png.toStdString());
}

}  // namespace hearthmark::ui
