// SPDX-License-Identifier: MIT
#include "ui/sheets/correct_interval_adapter.h"

#include <algorithm>
#include <utility>

#include "presentation/focus_length.h"
#include "ui/state/state_adapter.h"
#include "ui/text/duration_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

// With its minutes also where there are none, since a number alone is read as minutes.
QString fieldText(base::Seconds duration) {
    const QString text = durationText(duration);
    return text.isEmpty() || text.contains(':') ? text : "0:" + text.rightJustified(2, '0');
}

std::optional<base::Seconds> durationOf(const QString& text) {
    const auto [reading, length] = presentation::readLength(toUtf8(text));
    using Reading = presentation::TypedLength::Reading;
    return reading == Reading::length || reading == Reading::outOfRange ? std::optional(length)
                                                                        : std::nullopt;
}

template <class Value>
presentation::IntervalForm::Field<Value> field(const QString& text, const QString& first,
                                               std::optional<Value> value) {
    return {.isChanged = text != first, .value = std::move(value)};
}

}  // namespace

CorrectIntervalAdapter::CorrectIntervalAdapter(
    std::unique_ptr<presentation::CorrectIntervalViewModel> viewModel)
    : viewModel_(std::move(viewModel)), tasks_(viewModel_->tasks()), format_(QLocale()) {
    for (const auto& task : tasks_) {
        taskNames_.push_back(toOneLine(task.name));
    }
    const auto own = std::ranges::find(tasks_, viewModel_->taskId(),
                                       &presentation::CorrectIntervalViewModel::Choice::taskId);
    task_ = own != tasks_.end() ? static_cast<int>(own - tasks_.begin()) : -1;
    const auto& [isRunning, start, timeSpent, length] = viewModel_->beginning();
    start_ = start ? format_.text(*start) : QString();
    timeSpent_ = fieldText(timeSpent);
    length_ = length > base::Seconds(0) ? fieldText(length) : QString();
    firstStart_ = start_;
    firstTimeSpent_ = timeSpent_;
    firstLength_ = length_;
    check();
}

QString CorrectIntervalAdapter::remark() const {
    return toOneLine(state_.remark);
}

void CorrectIntervalAdapter::setTask(int task) {
    if (replace(task_, task)) {
        check();
    }
}

void CorrectIntervalAdapter::setStart(const QString& text) {
    if (replace(start_, text)) {
        check();
    }
}

void CorrectIntervalAdapter::setTimeSpent(const QString& text) {
    if (replace(timeSpent_, text)) {
        check();
    }
}

void CorrectIntervalAdapter::setLength(const QString& text) {
    if (replace(length_, text)) {
        check();
    }
}

QString CorrectIntervalAdapter::steppedStart(int cursor, int steps) const {
    return format_.stepped(start_, cursor, steps);
}

int CorrectIntervalAdapter::taskAfter(int index, const QString& beginning) const {
    const int count = static_cast<int>(taskNames_.size());
    for (int step = 0; step < count; ++step) {
        const int candidate = (index + step) % count;
        if (taskNames_[candidate].startsWith(beginning, Qt::CaseInsensitive)) {
            return candidate;
        }
    }
    return -1;
}

bool CorrectIntervalAdapter::save() {
    check();
    if (canSave()) {
        viewModel_->save(form());
    }
    return canSave();
}

presentation::IntervalForm CorrectIntervalAdapter::form() const {
    const QString length = length_.trimmed();
    return {
        .taskId = task_ >= 0 && task_ < static_cast<int>(tasks_.size())
                      ? tasks_[static_cast<std::size_t>(task_)].taskId
                      : viewModel_->taskId(),
        .start = field(start_, firstStart_, format_.read(start_)),
        .timeSpent = field(timeSpent_, firstTimeSpent_, durationOf(timeSpent_)),
        .length = field(length_, firstLength_,
                        length.isEmpty() ? std::optional(base::Seconds(0)) : durationOf(length))};
}

QString CorrectIntervalAdapter::startFault() const {
    const QString fault = faultOf(presentation::IntervalField::start);
    const bool needsExample = !fault.isEmpty() && !format_.read(start_) && !firstStart_.isEmpty();
    return needsExample ? fault + " It was " + firstStart_ + "." : fault;
}

QString CorrectIntervalAdapter::faultOf(presentation::IntervalField field) const {
    return state_.fault && state_.fault->field == field ? toQString(state_.fault->reason)
                                                        : QString();
}

void CorrectIntervalAdapter::check() {
    state_ = viewModel_->check(form());
    emit checked();
}

}  // namespace hearthmark::ui
