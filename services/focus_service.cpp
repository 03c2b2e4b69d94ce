// SPDX-License-Identifier: MIT
#include "services/focus_service.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/folding.h"
#include "base/text.h"
#include "base/weakly.h"
#include "services/focus.h"
#include "services/newest_focus.h"
#include "store/interval.h"
#include "store/newest_first.h"

namespace hearthmark::services {

namespace {

using Reason = FocusRefusal::Reason;

bool isLongerThan(std::string_view text, std::size_t characters) {
    return text.size() > characters && static_cast<std::size_t>(std::ranges::count_if(
                                           text, base::beginsCharacter)) > characters;
}

std::string shownName(const store::Task& task) {
    constexpr auto kCut = "…";
    std::string name = task.name().value_or("-");
    if (isLongerThan(name, FocusControl::kLongestName)) {
        std::size_t end = 0;
        for (std::size_t characters = 0; characters < FocusControl::kLongestName; ++end) {
            characters += base::beginsCharacter(name[end]) ? 1 : 0;
        }
        name.replace(end - 1, std::string::npos, kCut);
    }
    return name;
}

// Requires it to be a running one of a task, with ids.
RunningFocus runningFocus(const store::Interval& interval) {
    const store::Task& task = *interval.task();
    return {.taskId = *task.id(),
            .taskName = shownName(task),
            .intervalId = *interval.id(),
            .start = interval.intervalState()->asRunning()->started,
            .spentBefore = interval.duration(),
            .length = interval.maxDuration()};
}

std::optional<base::Seconds> typedLength(base::Seconds length) {
    const base::Seconds rounded(std::round(length.count()));
    return rounded >= kShortestFocus && rounded <= kLongestFocus ? std::optional(rounded)
                                                                 : std::nullopt;
}

FocusRefusal invalid(std::string text) {
    return {Reason::invalidArgument, std::move(text)};
}

FocusRefusal noSuchTask() {
    return {Reason::noSuchTask, "No task has this id."};
}

FocusRefusal noLength() {
    return invalid("This is not a length from a second to 24 hours.");
}

FocusRefusal nothingRuns() {
    return {Reason::nothingRuns, "No focus is running."};
}

}  // namespace

FocusService::FocusService(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
    std::shared_ptr<const base::Clock> clock)
    : dataOperationsService_(std::move(dataOperationsService)),
      tasksProvider_(
          liveDataFactory.makeProvider<store::Task>({.key = "creationDate", .ascending = true})),
      intervalsProvider_(liveDataFactory.makeProvider<store::Interval>(
          {.key = "creationDate", .ascending = true})),
      clock_(std::move(clock)) {
    tasksProvider_->startObserving();
    intervalsProvider_->startObserving();
}

void FocusService::startObserving(Handlers handlers) {
    // Of what is there already, which the subscriptions tell of at once, nobody is told.
    handlers_ = {.changed = [] {}, .started = [](const auto&) {}, .finished = [](const auto&) {}};
    // The name of the task, where it alone has changed.
    cancellables_.push_back(tasksProvider_->currentItems()->subscribe(base::weakly(
        weak_from_this(), [](FocusService& self, const store::Tasks&) { self.show(); })));
    cancellables_.push_back(intervalsProvider_->currentItems()->subscribe(
        base::weakly(weak_from_this(), [](FocusService& self, const store::Intervals& intervals) {
            self.show();
            self.tellStartsAndEnds(intervals);
        })));
    handlers_ = std::move(handlers);
}

void FocusService::show() {
    const store::Interval* const interval = newest();
    auto running = interval != nullptr ? std::optional(runningFocus(*interval)) : std::nullopt;
    if (running_ != running) {
        running_ = std::move(running);
        handlers_.changed();
    }
}

void FocusService::tellStartsAndEnds(const store::Intervals& intervals) {
    const std::unordered_set<base::Uuid> before = std::exchange(runningIds_, {});
    for (const store::Interval& interval : intervals) {
        const store::Task* const task = interval.task();
        if (!interval.id() || task == nullptr || !task->id()) {
            continue;
        }
        if (interval.isRunning()) {
            runningIds_.insert(*interval.id());
            if (seenIds_.insert(*interval.id()).second) {
                handlers_.started(runningFocus(interval));
            }
        } else if (before.contains(*interval.id()) && interval.isFinished()) {
            handlers_.finished({.taskId = *task->id(),
                                .taskName = shownName(*task),
                                .intervalId = *interval.id(),
                                .spent = interval.duration()});
        }
    }
}

FocusAnswer<base::Uuid> FocusService::start(const std::string& taskId, base::Seconds length) {
    const auto rounded = typedLength(length);
    if (!rounded) {
        return noLength();
    }
    const store::Task* const task = this->task(taskId);
    if (task == nullptr) {
        return noSuchTask();
    }
    if (!canStartFocus(tasksProvider_->currentItems()->value())) {
        return FocusRefusal{Reason::focusRunning, "A focus is running already."};
    }
    return startFocus(*dataOperationsService_, *clock_, *task->id(), *rounded);
}

FocusAnswer<base::Uuid> FocusService::finish() {
    const store::Interval* const interval = newest();
    if (interval == nullptr) {
        return nothingRuns();
    }
    // Copies, since the interval changes.
    const base::Uuid intervalId = *interval->id();
    const base::Uuid taskId = *interval->task()->id();
    dataOperationsService_->finishInterval(intervalId, taskId);
    return intervalId;
}

FocusAnswer<base::Seconds> FocusService::extend(base::Seconds by) {
    const auto rounded = typedLength(by);
    if (!rounded) {
        return noLength();
    }
    const store::Interval* const interval = newest();
    if (interval == nullptr) {
        return nothingRuns();
    }
    if (!(interval->maxDuration() > base::Seconds(0))) {
        return invalid("The focus that runs has no length, so it cannot be extended.");
    }
    const base::Seconds length = interval->maxDuration() + *rounded;
    const base::Uuid intervalId = *interval->id();
    const base::Uuid taskId = *interval->task()->id();
    dataOperationsService_->extendInterval(intervalId, taskId, *rounded);
    return length;
}

FocusAnswer<base::Uuid> FocusService::addTask(const std::string& name) {
    const std::string_view trimmed = base::trimmed(name);
    if (trimmed.empty()) {
        return invalid("A task needs a name.");
    }
    if (isLongerThan(trimmed, kLongestName)) {
        return invalid("This name has more than 10,000 characters.");
    }
    return dataOperationsService_->createTask(std::string(trimmed));
}

FocusAnswer<base::Uuid> FocusService::addNote(const std::string& taskId, const std::string& text) {
    const std::string_view trimmed = base::trimmed(text);
    if (trimmed.empty()) {
        return invalid("A note needs a text.");
    }
    if (trimmed.size() > kLongestNote) {
        return invalid("This note has more than 1,000,000 bytes.");
    }
    const store::Task* const task = this->task(taskId);
    if (task == nullptr) {
        return noSuchTask();
    }
    const base::Uuid owner = *task->id();
    const base::Uuid id = base::Uuid::random();
    dataOperationsService_->addNote(
        {.creationDate = clock_->now(), .id = id, .text = std::string(trimmed)}, owner);
    return id;
}

FocusAnswer<std::vector<FoundTask>> FocusService::findTasks(const std::string& words) {
    if (isLongerThan(words, kLongestSearch)) {
        return invalid("This is more than 200 characters to search for.");
    }
    const std::vector<std::string> folded = base::foldedWords(words);
    const store::Tasks tasks = tasksProvider_->currentItems()->value();
    std::vector<const store::Task*> found;
    for (const store::Task& task : tasks) {
        const std::string name = folded.empty() ? "" : base::folded(task.name().value_or("-"));
        if (task.id() && base::holdsAll(name, folded)) {
            found.push_back(&task);
        }
    }
    store::sortNewestFirst(found);
    found.resize(std::min(found.size(), kMostFound));
    std::vector<FoundTask> answer;
    answer.reserve(found.size());
    for (const store::Task* task : found) {
        answer.push_back(
            {.id = *task->id(), .name = shownName(*task), .isDone = task->doneDate().has_value()});
    }
    return answer;
}

const store::Interval* FocusService::newest() const {
    return newestFocus(intervalsProvider_->currentItems()->value());
}

const store::Task* FocusService::task(const std::string& taskId) const {
    const auto id = base::Uuid::fromText(taskId);
    return id ? store::taskWithId(tasksProvider_->currentItems()->value(), *id) : nullptr;
}

}  // namespace hearthmark::services
