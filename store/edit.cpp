// SPDX-License-Identifier: MIT
#include "store/edit.h"

#include <type_traits>

#include "objectstore/managed_object_context.h"
#include "store/bringing_back.h"
#include "store/edit_many.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/raw_interval_state.h"

namespace hearthmark::store {

namespace {

template <class Entity>
std::shared_ptr<Entity> handle(Entity& entity) {
    return std::static_pointer_cast<Entity>(entity.shared_from_this());
}

class Application {
 public:
    Application(const Tasks& tasks, objectstore::ManagedObjectContext& context,
                const base::Clock& clock)
        : tasks_(tasks), context_(context), clock_(clock) {}

    std::optional<Edit> operator()(const AddTask& edit) const {
        // It may have come back another way, as by an import.
        if (taskWithId(tasks_, edit.task.id.value()) != nullptr) {
            return std::nullopt;
        }
        bringBack(edit.task, edit.removedAt, context_, clock_.now());
        return RemoveTask{edit.task.id.value()};
    }

    std::optional<Edit> operator()(const RemoveTask& edit) const {
        Task* task = taskWithId(tasks_, edit.taskId);
        if (task == nullptr) {
            return std::nullopt;
        }
        AddTask inverse{.task = record(*task), .removedAt = clock_.now()};
        context_.remove(*task);
        return inverse;
    }

    template <class Record>
    std::optional<Edit> operator()(const Add<Record>& edit) const {
        Task* task = taskWithId(tasks_, edit.taskId);
        if (task == nullptr) {
            return std::nullopt;
        }
        insert(edit.record, *task, context_);
        return Remove<EntityOf<Record>>{.id = edit.record.id.value(), .taskId = edit.taskId};
    }

    template <class Entity>
    std::optional<Edit> operator()(const Remove<Entity>& edit) const {
        auto* entity = find<Entity>(edit.id, edit.taskId);
        if (entity == nullptr) {
            return std::nullopt;
        }
        Add<RecordOf<Entity>> inverse{.record = record(*entity), .taskId = edit.taskId};
        context_.remove(*entity);
        return inverse;
    }

    std::optional<Edit> operator()(const Take<Interval>& edit) const {
        auto* interval = find<Interval>(edit.id, edit.taskId);
        if (interval == nullptr) {
            return std::nullopt;
        }
        ReturnInterval inverse{.interval = handle(*interval),
                               .taskId = edit.taskId,
                               .takenAt = clock_.now(),
                               .timeSpent = std::nullopt};
        if (interval->isRunning()) {
            inverse.timeSpent = interval->totalDuration(inverse.takenAt);
        }
        interval->setTask(nullptr);
        return inverse;
    }

    std::optional<Edit> operator()(const ReturnInterval& edit) const {
        Task* task = taskWithId(tasks_, edit.taskId);
        if (task == nullptr) {
            return std::nullopt;
        }
        if (edit.timeSpent && !goesOnRunning(edit.takenAt, clock_.now())) {
            close(*edit.interval, *edit.timeSpent);
            context_.save();
        }
        putInto(*task, *edit.interval);
        return Take<Interval>{.id = edit.interval->id().value(), .taskId = edit.taskId};
    }

    std::optional<Edit> operator()(const Take<Note>& edit) const {
        auto* note = find<Note>(edit.id, edit.taskId);
        if (note == nullptr) {
            return std::nullopt;
        }
        note->setTask(nullptr);
        return ReturnNote{.note = handle(*note), .taskId = edit.taskId};
    }

    std::optional<Edit> operator()(const ReturnNote& edit) const {
        Task* task = taskWithId(tasks_, edit.taskId);
        if (task == nullptr) {
            return std::nullopt;
        }
        task->addNotesObject(*edit.note);
        return Take<Note>{.id = edit.note->id().value(), .taskId = edit.taskId};
    }

    std::optional<Edit> operator()(const RenameTask& edit) const {
        Task* task = taskWithId(tasks_, edit.taskId);
        if (task == nullptr || task->name() == edit.name) {
            return std::nullopt;
        }
        RenameTask inverse{.taskId = edit.taskId, .name = task->name()};
        task->setName(edit.name);
        return inverse;
    }

    std::optional<Edit> operator()(const MarkDone& edit) const {
        Task* task = taskWithId(tasks_, edit.taskId);
        if (task == nullptr || task->doneDate().has_value() == edit.doneDate.has_value() ||
            (edit.doneDate && task->isRunning())) {
            return std::nullopt;
        }
        MarkDone inverse{.taskId = edit.taskId, .doneDate = task->doneDate()};
        task->setDoneDate(edit.doneDate);
        return inverse;
    }

    std::optional<Edit> operator()(const EditNote& edit) const {
        auto* note = find<Note>(edit.noteId, edit.taskId);
        if (note == nullptr || note->text() == edit.text) {
            return std::nullopt;
        }
        EditNote inverse{.noteId = edit.noteId, .taskId = edit.taskId, .text = note->text()};
        note->setText(edit.text);
        // Whoever follows the tasks shows their notes.
        note->task()->setName(note->task()->name());
        return inverse;
    }

    std::optional<Edit> operator()(const MoveNote& edit) const {
        auto* note = find<Note>(edit.noteId, edit.taskId);
        Task* newTask = taskWithId(tasks_, edit.newTaskId);
        if (note == nullptr || newTask == nullptr || newTask == note->task()) {
            return std::nullopt;
        }
        note->setTask(newTask);
        return MoveNote{.noteId = edit.noteId, .taskId = edit.newTaskId, .newTaskId = edit.taskId};
    }

    std::optional<Edit> operator()(const CorrectInterval& edit) const {
        auto* interval = find<Interval>(edit.intervalId, edit.taskId);
        Task* newTask = edit.newTaskId ? taskWithId(tasks_, *edit.newTaskId) : nullptr;
        if (interval == nullptr || (edit.newTaskId && newTask == nullptr)) {
            return std::nullopt;
        }
        CorrectInterval inverse{.intervalId = edit.intervalId,
                                .taskId = edit.newTaskId.value_or(edit.taskId),
                                .creationDate = std::nullopt,
                                .time = std::nullopt,
                                .maxDuration = std::nullopt,
                                .newTaskId = std::nullopt};
        if (edit.creationDate && *edit.creationDate != interval->creationDate()) {
            inverse.creationDate = interval->creationDate();
            interval->setCreationDate(*edit.creationDate);
        }
        if (edit.maxDuration && *edit.maxDuration != interval->maxDuration()) {
            inverse.maxDuration = interval->maxDuration();
            interval->setMaxDuration(*edit.maxDuration);
        }
        if (edit.time) {
            const CountedTime before = countedTime(*interval);
            const CountedTime wanted =
                before == edit.time->found
                    ? edit.time->wanted
                    : withMore(before, difference(edit.time->found, edit.time->wanted),
                               clock_.now());
            if (wanted != before) {
                setCountedTime(*interval, wanted);
                inverse.time = {.found = countedTime(*interval), .wanted = before};
            }
        }
        if (newTask != nullptr && newTask != interval->task()) {
            Task& left = *interval->task();
            inverse.newTaskId = edit.taskId;
            inverse.doneDate = putInto(*newTask, *interval);
            if (edit.doneDate && !left.isRunning()) {
                left.setDoneDate(edit.doneDate);
            }
        }
        const bool isChanged =
            inverse.creationDate || inverse.maxDuration || inverse.time || inverse.newTaskId;
        return isChanged ? std::optional<Edit>(inverse) : std::nullopt;
    }

    std::optional<Edit> operator()(const AddMany& edit) const {
        return addMany(edit, tasks_, context_, clock_.now());
    }

    std::optional<Edit> operator()(const RemoveMany& edit) const {
        return removeMany(edit, tasks_, context_, clock_.now());
    }

 private:
    template <class Record>
    using EntityOf = std::conditional_t<std::is_same_v<Record, IntervalRecord>, Interval, Note>;
    template <class Entity>
    using RecordOf =
        std::conditional_t<std::is_same_v<Entity, Interval>, IntervalRecord, NoteRecord>;

    // Returns since when the task was done, where it is no longer.
    static std::optional<base::Date> putInto(Task& task, Interval& interval) {
        interval.setTask(&task);
        const std::optional<base::Date> doneDate = task.doneDate();
        if (!doneDate || !interval.isRunning()) {
            return std::nullopt;
        }
        task.setDoneDate(std::nullopt);
        return doneDate;
    }

    // Null where there is none.
    template <class Entity>
    Entity* find(const base::Uuid& id, const base::Uuid& taskId) const {
        const Task* task = taskWithId(tasks_, taskId);
        if (task == nullptr) {
            return nullptr;
        }
        if constexpr (std::is_same_v<Entity, Interval>) {
            return firstWithId(task->intervals(), id);
        } else {
            return firstWithId(task->notes(), id);
        }
    }

    const Tasks& tasks_;
    objectstore::ManagedObjectContext& context_;
    const base::Clock& clock_;
};

}  // namespace

std::optional<Edit> apply(const Edit& edit, const Tasks& tasks,
                          objectstore::ManagedObjectContext& context, const base::Clock& clock) {
    return std::visit(Application(tasks, context, clock), edit);
}

}  // namespace hearthmark::store
