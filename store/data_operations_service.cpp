// SPDX-License-Identifier: MIT
#include "store/data_operations_service.h"

#include <algorithm>
#include <utility>

#include "store/note.h"
#include "store/unresolved_error.h"

namespace hearthmark::store {

namespace {

// The first with the id; null where there is none.
template <class Range>
auto* firstWithId(const Range& objects, const base::Uuid& id) {
    const auto found =
        std::ranges::find_if(objects, [&id](const auto* object) { return object->id() == id; });
    return found != objects.end() ? *found : nullptr;
}

template <class Entity>
std::shared_ptr<Entity> handle(Entity& entity) {
    return std::static_pointer_cast<Entity>(entity.shared_from_this());
}

}  // namespace

DataOperationsService::DataOperationsService(
    const LiveDataProvidingFactoryProtocol& liveDataProvidingFactory,
    std::shared_ptr<objectstore::PersistentContainer> persistentContainer,
    std::shared_ptr<const base::Clock> clock, base::FatalErrorHandler fatal)
    : persistentContainer_(std::move(persistentContainer)),
      clock_(std::move(clock)),
      fatal_(std::move(fatal)),
      tasksProvider_(
          liveDataProvidingFactory.makeProvider<Task>({.key = "creationDate", .ascending = true})),
      runningIntervals_(persistentContainer_->viewContext()) {
    tasksProvider_->startObserving();
}

void DataOperationsService::createTask(const std::string& name) {
    const auto task = context().insert<Task>();
    task->setId(base::Uuid::random());
    task->setCreationDate(clock_->now());
    task->setName(name);
    save();
}

void DataOperationsService::deleteTask(const base::Uuid& taskId) {
    if (Task* found = task(taskId)) {
        Deletion deletion = deletedTask(*found);
        context().remove(*found);
        saveDeletion(std::move(deletion));
    }
}

void DataOperationsService::addInterval(const IntervalData& interval, const base::Uuid& taskId) {
    if (Task* found = task(taskId)) {
        found->addIntervalsObject(*Interval::create(interval, context()));
        save();
    }
}

void DataOperationsService::finishInterval(const base::Uuid& intervalId, const base::Uuid& taskId) {
    Task* owner = task(taskId);
    Interval* interval = owner != nullptr ? firstWithId(owner->intervals(), intervalId) : nullptr;
    if (interval == nullptr) {
        return;
    }
    interval->setDuration(interval->totalDuration(clock_->now()));
    if (interval->rawState() != nullptr) {
        interval->rawState()->close();
    }
    save();
}

void DataOperationsService::deleteInterval(const base::Uuid& intervalId, const base::Uuid& taskId) {
    Task* owner = task(taskId);
    Interval* interval = owner != nullptr ? firstWithId(owner->intervals(), intervalId) : nullptr;
    if (interval != nullptr) {
        owner->removeIntervalsObject(*interval);
        saveDeletion(TakenInterval{handle(*interval), taskId});
    }
}

void DataOperationsService::addNote(const NoteData& note, const base::Uuid& taskId) {
    if (Task* found = task(taskId)) {
        found->addNotesObject(*Note::create(note, context()));
        save();
    }
}

void DataOperationsService::deleteNote(const base::Uuid& noteId, const base::Uuid& taskId) {
    Task* owner = task(taskId);
    Note* note = owner != nullptr ? firstWithId(owner->notes(), noteId) : nullptr;
    if (note != nullptr) {
        owner->removeNotesObject(*note);
        saveDeletion(TakenNote{handle(*note), taskId});
    }
}

void DataOperationsService::undo(const Deletion& deletion) {
    if (const auto* deleted = std::get_if<DeletedTask>(&deletion)) {
        putBack(*deleted, context());
    } else if (const auto* interval = std::get_if<TakenInterval>(&deletion)) {
        if (Task* owner = task(interval->taskId)) {
            owner->addIntervalsObject(*interval->interval);
        }
    } else if (const auto* note = std::get_if<TakenNote>(&deletion)) {
        if (Task* owner = task(note->taskId)) {
            owner->addNotesObject(*note->note);
        }
    }
    save();
}

void DataOperationsService::finishDueIntervals() {
    const base::Date now = clock_->now();
    for (const std::shared_ptr<Interval>& interval : runningIntervals_.intervals()) {
        const base::Seconds spent = interval->totalDuration(now);
        const bool isLimited = interval->maxDuration() != base::Seconds(0);
        if (isLimited && interval->maxDuration() <= spent) {
            interval->setDuration(spent);
            interval->rawState()->close();
        }
    }
    save();
}

void DataOperationsService::markRunningIntervalsVisited(base::Date at) {
    for (const std::shared_ptr<Interval>& interval : runningIntervals_.intervals()) {
        interval->rawState()->setVisited(at);
    }
    save();
}

void DataOperationsService::excludeTime(base::Date from, base::Date to) {
    for (const std::shared_ptr<Interval>& interval : runningIntervals_.intervals()) {
        interval->setDuration(interval->totalDuration(from));
        interval->rawState()->run(to);
    }
    save();
}

void DataOperationsService::finishIntervalsLeftRunning() {
    for (const std::shared_ptr<Interval>& interval : runningIntervals_.intervals()) {
        if (interval->task() != nullptr) {
            interval->finish();
        }
    }
    save();
}

void DataOperationsService::resumePausedIntervals() {
    const base::Date now = clock_->now();
    for (const Task& each : tasksProvider_->currentItems()->value()) {
        for (const Interval* interval : each.intervals()) {
            const auto state = interval->intervalState();
            if (state && state->isPaused()) {
                interval->rawState()->run(now);
            }
        }
    }
    save();
}

void DataOperationsService::pauseRunningIntervals() {
    const base::Date now = clock_->now();
    for (const std::shared_ptr<Interval>& interval : runningIntervals_.intervals()) {
        interval->setDuration(interval->totalDuration(now));
        interval->rawState()->pause();
    }
    save();
}

Task* DataOperationsService::task(const base::Uuid& taskId) const {
    return taskWithId(tasksProvider_->currentItems()->value(), taskId);
}

void DataOperationsService::saveDeletion(Deletion deletion) {
    save();
    latestDeletion_.setValue(std::make_shared<const Deletion>(std::move(deletion)));
}

void DataOperationsService::save() {
    try {
        context().save();
    } catch (const objectstore::StoreError& error) {
        fatal_(unresolvedError("Hearthmark/DataOperationsService", error));
    }
}

}  // namespace hearthmark::store
