// SPDX-License-Identifier: MIT
#include "ui/list/task_list_adapter.h"

#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

QString matchesText(std::size_t count) {
    return count == 0   ? QObject::tr("No matches")
           : count == 1 ? QObject::tr("1 match")
                        : QObject::tr("%L1 matches").arg(count);
}

}  // namespace

TaskListAdapter::TaskListAdapter(std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    connect(&rows_, &TaskListModel::rowsInserted, this,
            [this](const QModelIndex& /*parent*/, int first) { insertedRow_ = first; });
    connect(&rows_, &TaskListModel::foldToggled, this, &TaskListAdapter::stateShown,
            Qt::QueuedConnection);
    connect(this, &TaskListAdapter::stateShown, this, [this] { insertedRow_ = -1; });
    viewModel_->startObserving();
}

int TaskListAdapter::newestRow() const {
    return insertedRow_ >= 0 ? insertedRow_ : rows_.selectedRow();
}

void TaskListAdapter::openSearch() {
    viewModel_->openSearch();
}

void TaskListAdapter::search(const QString& typed) {
    viewModel_->search(toUtf8(typed));
    QMetaObject::invokeMethod(this, &TaskListAdapter::matchesShown, Qt::QueuedConnection);
}

void TaskListAdapter::closeSearch() {
    viewModel_->closeSearch();
}

bool TaskListAdapter::isTyping(const QString& text, int modifiers) {
    const Qt::KeyboardModifiers others =
        Qt::KeyboardModifiers(modifiers) &
        ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier);
    const char32_t first = text.isEmpty() ? 0 : text.toUcs4().front();
    return !others && QChar::isPrint(first) && !QChar::isSpace(first);
}

int TaskListAdapter::reachedRunningRow() const {
    const int row = reachedId_ ? rows_.rowOf(*reachedId_) : -1;
    return rows_.isRunning(row) ? row : -1;
}

int TaskListAdapter::reachedRow() const {
    const int row = reachedId_ ? rows_.rowOf(*reachedId_) : -1;
    return row >= 0 ? row : rows_.selectedRow();
}

void TaskListAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state) {
        return;
    }
    rows_.show(*state);
    bool isOther = replace(isSearchOpen_, state->isSearchOpen);
    isOther |= replace(matches_, state->matchCount ? matchesText(*state->matchCount) : QString());
    if (isOther) {
        emit searchShown();
    }
    if (replace(loaded_, true)) {
        emit loadedChanged();
    }
    QMetaObject::invokeMethod(this, &TaskListAdapter::stateShown, Qt::QueuedConnection);
}

}  // namespace hearthmark::ui
