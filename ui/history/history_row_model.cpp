// SPDX-License-Identifier: MIT
#include "ui/history/history_row_model.h"

#include <QLocale>
#include <algorithm>
#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using State = presentation::HistoryViewState;

HistoryTableRow tableRow(const State::Row& row, const RowKey& key) {
    const QLocale locale;
    const QString focuses = locale.toString(static_cast<qulonglong>(row.focuses));
    const QString share =
        row.permille ? HistoryRowModel::tr("%1%").arg(locale.toString(*row.permille / 10.0, 'f', 1))
                     : QStringLiteral("-");
    const QString timeSpent = toQString(row.timeSpent);
    return {.key = key,
            .taskName = toOneLine(row.taskName),
            .timeSpent = timeSpent,
            .share = share,
            .focuses = focuses,
            .description = (row.focuses == 1 ? HistoryRowModel::tr("%1, %2, %3 focus")
                                             : HistoryRowModel::tr("%1, %2, %3 focuses"))
                               .arg(timeSpent, share, focuses),
            .ticks = row.isRunning};
}

}  // namespace

const std::vector<RowRole<HistoryTableRow>>& HistoryTableRow::roles() {
    static const std::vector kRoles{role<&HistoryTableRow::taskName>("taskName"),
                                    role<&HistoryTableRow::timeSpent>("timeSpent"),
                                    role<&HistoryTableRow::share>("share"),
                                    role<&HistoryTableRow::focuses>("focuses"),
                                    role<&HistoryTableRow::description>("description"),
                                    role<&HistoryTableRow::ticks>("ticks")};
    return kRoles;
}

void HistoryRowModel::show(const State::Rows& next) {
    const auto before = std::exchange(shown_, next);
    const auto isOfSameTask = [](const auto& a, const auto& b) {
        return a == b || a->taskId == b->taskId;
    };
    if (std::ranges::equal(before, next, isOfSameTask)) {
        for (std::size_t row = 0; row < next.size(); ++row) {
            if (next[row] != before[row]) {
                update(row, row + 1, {tableRow(*next[row], rows()[row].key)});
            }
        }
        return;
    }
    std::vector<HistoryTableRow> all;
    all.reserve(next.size());
    ui::RowKeys keys;
    for (const auto& row : next) {
        all.push_back(tableRow(*row, keys.next(row->taskId.value_or(base::Uuid()))));
    }
    update(std::move(all));
}

}  // namespace hearthmark::ui
