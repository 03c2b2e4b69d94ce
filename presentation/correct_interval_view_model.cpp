// SPDX-License-Identifier: MIT
#include "presentation/correct_interval_view_model.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "presentation/focus_length.h"
#include "presentation/texts.h"
#include "store/interval.h"
#include "store/newest_first.h"

namespace hearthmark::presentation {

namespace {

using namespace std::chrono_literals;

constexpr base::Seconds kUsualTimeSpent = 30min;
// What begins earlier is a year of which two digits were typed.
constexpr std::chrono::year kFirstYear{1970};
// What sums of dates may be off by.
constexpr base::Seconds kRounding = 1ms;

base::Date flooredToMinutes(base::Date date) {
    return base::Date(base::Seconds(std::floor(date.sinceReferenceDate() / 1min) * 60));
}

// What the wall clock does not show.
base::Seconds fraction(base::Date date) {
    const base::Seconds seconds = date.sinceReferenceDate();
    return seconds - base::Seconds(std::floor(seconds.count()));
}

std::chrono::seconds difference(const base::LocalTime& a, const base::LocalTime& b) {
    return std::chrono::sys_days(a.day) - std::chrono::sys_days(b.day) + a.sinceMidnight -
           b.sinceMidnight;
}

}  // namespace

CorrectIntervalViewModel::CorrectIntervalViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
    std::shared_ptr<const base::Clock> clock, std::shared_ptr<const base::Calendar> calendar,
    const base::Uuid& taskId, const std::optional<base::Uuid>& intervalId)
    : dataOperationsService_(std::move(dataOperationsService)),
      clock_(std::move(clock)),
      calendar_(std::move(calendar)),
      tasksProvider_(
          liveDataFactory.makeProvider<store::Task>({.key = "creationDate", .ascending = true})),
      taskId_(taskId),
      intervalId_(intervalId) {
    tasksProvider_->startObserving();
    const base::Date now = clock_->now();
    if (const store::Interval* found = interval()) {
        creationDate_ = found->creationDate();
        beginning_ = {.isRunning = found->isRunning(),
                      .start = std::nullopt,
                      .timeSpent = found->totalDuration(now),
                      .length = found->maxDuration()};
    } else {
        intervalId_.reset();
        creationDate_ = flooredToMinutes(now + -kUsualTimeSpent);
        beginning_.timeSpent = kUsualTimeSpent;
    }
    if (creationDate_) {
        beginning_.start = calendar_->localTime(*creationDate_);
    }
}

std::vector<CorrectIntervalViewModel::Choice> CorrectIntervalViewModel::tasks() const {
    std::vector<const store::Task*> tasks;
    for (const store::Task& task : tasksProvider_->currentItems()->value()) {
        if (task.id()) {
            tasks.push_back(&task);
        }
    }
    store::sortNewestFirst(tasks);
    std::vector<Choice> choices;
    choices.reserve(tasks.size());
    for (const store::Task* task : tasks) {
        choices.push_back({.taskId = *task->id(), .name = orDash(task->name())});
    }
    return choices;
}

const store::Interval* CorrectIntervalViewModel::interval() const {
    const store::Task* task = store::taskWithId(tasksProvider_->currentItems()->value(), taskId_);
    return task != nullptr && intervalId_ ? store::firstWithId(task->intervals(), *intervalId_)
                                          : nullptr;
}

std::optional<base::Date> CorrectIntervalViewModel::start(const IntervalForm& form) const {
    if (!form.start.isChanged || !form.start.value) {
        return creationDate_;
    }
    const std::vector<base::Date> moments = calendar_->moments(*form.start.value);
    if (moments.empty()) {
        return std::nullopt;
    }
    // Of a time that comes twice it is the one on the same side of the change as before.
    const auto keepsItsSide = [this, &form](base::Date moment) {
        return creationDate_ && beginning_.start &&
               std::abs((moment - *creationDate_ - difference(*form.start.value, *beginning_.start))
                            .count()) < 1;
    };
    const auto found = std::ranges::find_if(moments, keepsItsSide);
    const base::Date moment = found != moments.end() ? *found : moments.front();
    return creationDate_ ? moment + fraction(*creationDate_) : moment;
}

base::Seconds CorrectIntervalViewModel::timeSpent(const IntervalForm& form) const {
    if (form.timeSpent.isChanged && form.timeSpent.value) {
        return *form.timeSpent.value;
    }
    const store::Interval* found = interval();
    if (found == nullptr) {
        return beginning_.timeSpent;
    }
    const base::Seconds spent = found->totalDuration(clock_->now());
    const std::optional<base::Date> begun = start(form);
    return found->isRunning() && creationDate_ && begun ? spent + (*creationDate_ - *begun) : spent;
}

std::optional<std::string> CorrectIntervalViewModel::startFault(const IntervalForm& form) const {
    if (!form.start.value) {
        return "This is not a date and a time of day.";
    }
    if (form.start.value->day.year() < kFirstYear) {
        return "This lies before the year 1970.";
    }
    const std::optional<base::Date> begun = start(form);
    if (!begun) {
        return "The clocks skip this time of day.";
    }
    const base::Date now = clock_->now();
    if (*begun > now) {
        return "This lies in the future.";
    }
    if (form.timeSpent.isChanged) {
        return std::nullopt;  // which is looked at by itself
    }
    const base::Seconds spent = timeSpent(form);
    if (spent < -kRounding) {
        return "Less than nothing would be left of the time spent.";
    }
    return *begun + spent > now + kRounding ? std::optional("It would end in the future.")
                                            : std::nullopt;
}

std::optional<std::string> CorrectIntervalViewModel::timeSpentFault(
    const IntervalForm& form) const {
    if (!form.timeSpent.value || *form.timeSpent.value < 0s) {
        return "This is not a time: 25:00 is 25 minutes, 1:30:00 an hour and a half.";
    }
    const std::optional<base::Date> begun = start(form);
    if (begun && *begun + *form.timeSpent.value > clock_->now() + kRounding) {
        return "There was not so much time since the start.";
    }
    return std::nullopt;
}

std::optional<CorrectIntervalViewState::Fault> CorrectIntervalViewModel::fault(
    const IntervalForm& form) const {
    const auto faultAt = [](IntervalField field, std::string reason) {
        return CorrectIntervalViewState::Fault{.field = field, .reason = std::move(reason)};
    };
    if (form.start.isChanged) {
        if (auto reason = startFault(form)) {
            return faultAt(IntervalField::start, *std::move(reason));
        }
    }
    if (form.timeSpent.isChanged) {
        if (auto reason = timeSpentFault(form)) {
            return faultAt(IntervalField::timeSpent, *std::move(reason));
        }
    }
    const base::Seconds length = form.length.value.value_or(base::Seconds(-1));
    if (form.length.isChanged && length != base::Seconds(0) &&
        !(length >= kShortestFocus && length <= kLongestFocus)) {
        return faultAt(IntervalField::length,
                       "This is not a length from a second to 24 hours; empty means no limit.");
    }
    return std::nullopt;
}

CorrectIntervalViewState CorrectIntervalViewModel::check(const IntervalForm& form) const {
    CorrectIntervalViewState state{.fault = fault(form), .remark = {}};
    const bool isMoved = isNew() || form.start.isChanged || form.timeSpent.isChanged;
    if (!state.fault && isMoved) {
        state.remark = overlap(form);
    }
    return state;
}

std::string CorrectIntervalViewModel::overlap(const IntervalForm& form) const {
    const std::optional<base::Date> begun = start(form);
    if (!begun) {
        return {};
    }
    const base::Date now = clock_->now();
    const base::Date end = beginning_.isRunning ? now : *begun + timeSpent(form);
    const store::Interval* self = interval();
    const store::Task* with = nullptr;
    int count = 0;
    for (const store::Task& task : tasksProvider_->currentItems()->value()) {
        for (const store::Interval* other : task.intervals()) {
            const std::optional<base::Date> otherBegun = other->creationDate();
            if (other != self && otherBegun && *otherBegun < end &&
                *begun < *otherBegun + other->totalDuration(now)) {
                with = &task;
                ++count;
            }
        }
    }
    if (count > 1) {
        return "Overlaps with " + std::to_string(count) + " other intervals.";
    }
    return with != nullptr ? "Overlaps with an interval of “" + orDash(with->name()) + "”." : "";
}

void CorrectIntervalViewModel::save(const IntervalForm& form) {
    if (fault(form)) {
        return;
    }
    if (isNew()) {
        dataOperationsService_->addInterval(
            {.creationDate = start(form).value_or(clock_->now()),
             .duration = timeSpent(form),
             .id = base::Uuid::random(),
             .maxDuration = form.length.value.value_or(base::Seconds(0)),
             .state = store::IntervalState::finished()},
            form.taskId);
        return;
    }
    store::IntervalCorrection correction;
    if (form.start.isChanged) {
        correction.creationDate = start(form);
    }
    if (form.timeSpent.isChanged) {
        correction.timeSpent = form.timeSpent.value;
    }
    if (form.length.isChanged) {
        correction.maxDuration = form.length.value;
    }
    if (form.taskId != taskId_) {
        correction.taskId = form.taskId;
    }
    dataOperationsService_->correctInterval(*intervalId_, taskId_, correction);
}

}  // namespace hearthmark::presentation
