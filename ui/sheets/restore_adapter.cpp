// SPDX-License-Identifier: MIT
#include "ui/sheets/restore_adapter.h"

#include <QStringList>
#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

QString countText(std::int64_t count, const QString& one, const QString& several) {
    return count == 1 ? one : several.arg(count);
}

// Of one kind of change; empty where there is none.
QString lineOf(const QString& line, const store::RestoreChanges& changes,
               std::int64_t objectstore::RowDifference::*count) {
    QStringList parts;
    const auto add = [&parts, count](const objectstore::RowDifference& rows, auto text) {
        if (rows.*count > 0) {
            parts += text(rows.*count);
        }
    };
    add(changes.tasks, &tasksText);
    add(changes.intervals, &intervalsText);
    add(changes.notes, &notesText);
    return parts.isEmpty() ? QString() : line.arg(parts.join(QStringLiteral(", ")));
}

}  // namespace

QString tasksText(std::int64_t count) {
    return countText(count, RestoreAdapter::tr("1 task"), RestoreAdapter::tr("%1 tasks"));
}

QString intervalsText(std::int64_t count) {
    return countText(count, RestoreAdapter::tr("1 interval"), RestoreAdapter::tr("%1 intervals"));
}

QString notesText(std::int64_t count) {
    return countText(count, RestoreAdapter::tr("1 note"), RestoreAdapter::tr("%1 notes"));
}

RestoreAdapter::RestoreAdapter(std::shared_ptr<presentation::RestoreBackupViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
}

QString RestoreAdapter::changes() const {
    using Rows = objectstore::RowDifference;
    if (!canRestore()) {
        return {};
    }
    QStringList lines{lineOf(tr("Would be brought back: %1"), *state().changes, &Rows::added),
                      lineOf(tr("Would be removed: %1"), *state().changes, &Rows::removed),
                      lineOf(tr("Would be changed back: %1"), *state().changes, &Rows::changed)};
    lines.removeAll(QString());
    return lines.isEmpty() ? tr("Nothing would change.") : lines.join(QLatin1Char('\n'));
}

QString RestoreAdapter::fault() const {
    return toQString(state().fault);
}

void RestoreAdapter::show() {
    rows_.show(state());
    emit changed();
}

void RestoreAdapter::select(int row) {
    if (row >= 0 && row < rows_.rowCount()) {
        viewModel_->select(static_cast<std::size_t>(row));
    }
}

}  // namespace hearthmark::ui
