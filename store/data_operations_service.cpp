// SPDX-License-Identifier: MIT
#include "store/data_operations_service.h"

#include <utility>

#include "store/note.h"
#include "store/unresolved_error.h"

namespace hearthmark::store {

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

base::Uuid DataOperationsService::createTask(const std::string& name) {
    const base::Uuid id = base::Uuid::random();
    change(Change::Kind::addTask, id,
           AddTask{.task = {.id = id,
                            .creationDate = clock_->now(),
                            .name = name,
                            .doneDate = std::nullopt,
                            .intervals = {},
                            .notes = {}},
                   .removedAt = std::nullopt});
    return id;
}

void DataOperationsService::deleteTask(const base::Uuid& taskId) {
    change(Change::Kind::deleteTask, taskId, RemoveTask{taskId});
}

void DataOperationsService::renameTask(const base::Uuid& taskId, const std::string& name) {
    change(Change::Kind::renameTask, taskId, RenameTask{.taskId = taskId, .name = name});
}

void DataOperationsService::markTaskDone(const base::Uuid& taskId) {
    change(Change::Kind::markTaskDone, taskId,
           MarkDone{.taskId = taskId, .doneDate = clock_->now()});
}

void DataOperationsService::reopenTask(const base::Uuid& taskId) {
    change(Change::Kind::reopenTask, taskId, MarkDone{.taskId = taskId, .doneDate = std::nullopt});
}

void DataOperationsService::addInterval(const IntervalData& interval, const base::Uuid& taskId) {
    if (interval.state.isFinished()) {
        change(Change::Kind::addInterval, taskId,
               Add<IntervalRecord>{
                   .record = {.id = interval.id,
                              .creationDate = interval.creationDate,
                              .duration = interval.duration,
                              .maxDuration = interval.maxDuration,
                              .rawState = {{.state = static_cast<std::int16_t>(StateCode::finished),
                                            .started = std::nullopt,
                                            .visited = std::nullopt}}},
                   .taskId = taskId});
    } else if (Task* found = task(taskId)) {
        found->addIntervalsObject(*Interval::create(interval, context()));
        if (interval.state.isRunning()) {
            found->setDoneDate(std::nullopt);
        }
        save();
    }
}

void DataOperationsService::finishInterval(const base::Uuid& intervalId, const base::Uuid& taskId) {
    Interval* found = interval(intervalId, taskId);
    if (found == nullptr) {
        return;
    }
    found->setDuration(found->totalDuration(clock_->now()));
    if (found->rawState() != nullptr) {
        found->rawState()->close();
    }
    save();
}

void DataOperationsService::deleteInterval(const base::Uuid& intervalId, const base::Uuid& taskId) {
    change(Change::Kind::deleteInterval, taskId,
           Take<Interval>{.id = intervalId, .taskId = taskId});
}

void DataOperationsService::correctInterval(const base::Uuid& intervalId, const base::Uuid& taskId,
                                            const IntervalCorrection& correction) {
    if (const Interval* found = interval(intervalId, taskId)) {
        change(Change::Kind::correctInterval, taskId,
               correctingEdit(*found, intervalId, taskId, correction, clock_->now()));
    }
}

void DataOperationsService::extendInterval(const base::Uuid& intervalId, const base::Uuid& taskId,
                                           base::Seconds by) {
    const Interval* found = interval(intervalId, taskId);
    if (found != nullptr && found->isRunning() && found->maxDuration() > base::Seconds(0)) {
        const IntervalCorrection correction{.maxDuration = found->maxDuration() + by};
        change(Change::Kind::extendInterval, taskId,
               correctingEdit(*found, intervalId, taskId, correction, clock_->now()));
    }
}

void DataOperationsService::addNote(const NoteData& note, const base::Uuid& taskId) {
    change(Change::Kind::addNote, taskId,
           Add<NoteRecord>{
               .record = {.id = note.id, .creationDate = note.creationDate, .text = note.text},
               .taskId = taskId});
}

void DataOperationsService::deleteNote(const base::Uuid& noteId, const base::Uuid& taskId) {
    change(Change::Kind::deleteNote, taskId, Take<Note>{.id = noteId, .taskId = taskId});
}

void DataOperationsService::editNote(const base::Uuid& noteId, const base::Uuid& taskId,
                                     const std::string& text) {
    change(Change::Kind::editNote, taskId,
           EditNote{.noteId = noteId, .taskId = taskId, .text = text});
}

void DataOperationsService::moveNote(const base::Uuid& noteId, const base::Uuid& taskId,
                                     const base::Uuid& newTaskId) {
    change(Change::Kind::moveNote, taskId,
           MoveNote{.noteId = noteId, .taskId = taskId, .newTaskId = newTaskId});
}

ImportCounts DataOperationsService::importable(const std::vector<TaskRecord>& tasks) const {
    return planImport(tasks, context()).counts;
}

void DataOperationsService::importTasks(const std::vector<TaskRecord>& tasks) {
    if (std::optional<Edit> inverse = applyAndSave(planImport(tasks, context()).edit)) {
        latestChange_.setValue(std::make_shared<const Change>(
            Change{Change::Kind::importTasks, std::nullopt, *std::move(inverse)}));
    }
}

std::shared_ptr<const Change> DataOperationsService::undo(const Change& change) {
    std::optional<Edit> inverse = applyAndSave(change.inverse);
    return inverse ? std::make_shared<const Change>(
                         Change{change.kind, change.taskName, *std::move(inverse)})
                   : nullptr;
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

Interval* DataOperationsService::interval(const base::Uuid& intervalId,
                                          const base::Uuid& taskId) const {
    const Task* owner = task(taskId);
    return owner != nullptr ? firstWithId(owner->intervals(), intervalId) : nullptr;
}

void DataOperationsService::change(Change::Kind kind, const base::Uuid& taskId, const Edit& edit) {
    const auto name = [this, &taskId] {
        const Task* found = task(taskId);
        return found != nullptr ? found->name() : std::nullopt;
    };
    const std::optional<std::string> nameBefore = name();
    if (std::optional<Edit> inverse = applyAndSave(edit)) {
        const std::optional<std::string> nameAfter = name();
        latestChange_.setValue(std::make_shared<const Change>(
            Change{kind, nameAfter ? nameAfter : nameBefore, *std::move(inverse)}));
    }
}

std::optional<Edit> DataOperationsService::applyAndSave(const Edit& edit) {
    try {
        std::optional<Edit> inverse =
            apply(edit, tasksProvider_->currentItems()->value(), context(), *clock_);
        context().save();
        return inverse;
    } catch (const objectstore::StoreError& error) {
        fail(error);
    }
}

void DataOperationsService::save() {
    try {
        context().save();
    } catch (const objectstore::StoreError& error) {
        fail(error);
    }
}

void DataOperationsService::fail(const objectstore::StoreError& error) {
    fatal_(unresolvedError("Hearthmark/DataOperationsService", error));
}

}  // namespace hearthmark::store
