// SPDX-License-Identifier: MIT
#include "support/random_operations.h"

#include <iterator>
#include <utility>

#include "store/note.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::tests {

std::string contentOf(const std::filesystem::path& directory) {
    return sql(directory / "Hearthmark.sqlite",
               "SELECT pk, name, creationDate, doneDate FROM Task ORDER BY pk;"
               "SELECT pk, creationDate, iif(task, duration, 0), maxDuration, task FROM Interval "
               "ORDER BY pk;"
               "SELECT r.pk, interval, iif(task, state, 0), iif(task, started, 0), "
               "iif(task, visited, 0) FROM RawIntervalState r LEFT JOIN Interval i "
               "ON i.pk = interval ORDER BY r.pk;"
               "SELECT pk, creationDate, text, task FROM Note ORDER BY pk");
}

RandomOperations::RandomOperations(std::shared_ptr<objectstore::PersistentContainer> container,
                                   unsigned seed)
    : random_(seed),
      container_(std::move(container)),
      liveDataFactory_(container_),
      service_(std::make_shared<store::DataOperationsService>(liveDataFactory_, container_, clock_,
                                                              base::FatalErrorHandler())),
      history_(service_) {}

void RandomOperations::doOne() {
    const base::Date now = clock_->time =
        clock_->time + base::Seconds(std::uniform_real_distribution<>(0, 300)(random_));
    const store::Tasks tasks = container_->viewContext().objects<store::Task>();
    const int choice = below(100);
    if (tasks.empty() || choice < 8) {
        service_->createTask("Task " + std::to_string(++made_));
    } else if (choice < 80) {
        changeTask(*std::next(tasks.begin(), below(tasks.size())), choice, now);
    } else if (choice < 83) {
        service_->finishDueIntervals();
    } else if (choice < 86) {
        service_->markRunningIntervalsVisited(now);
    } else if (choice < 87) {
        clock_->time = now + base::Seconds(40000);
        service_->excludeTime(now, clock_->time);
    } else if (choice < 88) {
        service_->finishIntervalsLeftRunning();
    } else if (choice < 90) {
        service_->resumePausedIntervals();
    } else if (choice < 92) {
        service_->pauseRunningIntervals();
    } else if (choice < 94) {
        importTasks(now);
    } else if (choice < 98) {
        history_.undo();
    } else {
        history_.redo();
    }
}

int RandomOperations::below(std::size_t bound) {
    return std::uniform_int_distribution<>(0, static_cast<int>(bound) - 1)(random_);
}

template <class Entity>
base::Uuid RandomOperations::anyOf(const std::vector<Entity*>& entities) {
    return entities[static_cast<std::size_t>(below(entities.size()))]->id().value();
}

base::Uuid RandomOperations::anyTask() {
    const store::Tasks tasks = container_->viewContext().objects<store::Task>();
    return std::next(tasks.begin(), below(tasks.size()))->id().value();
}

void RandomOperations::changeTask(const store::Task& task, int choice, base::Date now) {
    const base::Uuid taskId = task.id().value();
    const base::Uuid newId = base::Uuid::random();
    if (choice < 12) {
        service_->deleteTask(taskId);
    } else if (choice < 16) {
        service_->renameTask(taskId, "Task " + std::to_string(++made_));
    } else if (choice < 20) {
        task.doneDate() ? service_->reopenTask(taskId) : service_->markTaskDone(taskId);
    } else if (choice < 34 || task.intervals().empty()) {
        const bool isPast = below(4) == 0;
        service_->addInterval({.creationDate = now,
                               .duration = base::Seconds(isPast ? below(3000) : 0),
                               .id = newId,
                               .maxDuration = base::Seconds(300 * below(8)),
                               .state = isPast ? store::IntervalState::finished()
                                               : store::IntervalState::running(now)},
                              taskId);
    } else if (choice < 61) {
        changeInterval(task, choice, now);
    } else if (choice < 68 || task.notes().empty()) {
        const std::string text(static_cast<std::size_t>(below(3000)), 'n');
        service_->addNote({.creationDate = now, .id = newId, .text = text}, taskId);
    } else {
        changeNote(task, choice);
    }
}

// One task that is new and one of which some is there.
void RandomOperations::importTasks(base::Date now) {
    std::vector<store::TaskRecord> tasks(2);
    tasks[0].id = base::Uuid::random();
    tasks[1].id = anyTask();
    for (store::TaskRecord& task : tasks) {
        task.creationDate = now;
        task.name = "Task " + std::to_string(++made_);
        for (int count = below(20); count > 0; --count) {
            task.intervals.push_back({.id = base::Uuid::random(),
                                      .creationDate = now + -base::Seconds(below(4000)),
                                      .duration = base::Seconds(below(3000)),
                                      .rawState = {{std::int16_t(below(3)), {}, {}}}});
            task.notes.push_back({.id = base::Uuid::random(),
                                  .creationDate = now,
                                  .text = std::string(std::size_t(below(3000)), 'i')});
        }
    }
    service_->importTasks(tasks);
}

void RandomOperations::changeInterval(const store::Task& task, int choice, base::Date now) {
    const base::Uuid taskId = task.id().value();
    const base::Uuid intervalId = anyOf(task.intervals());
    if (choice < 39) {
        service_->finishInterval(intervalId, taskId);
    } else if (choice < 44) {
        service_->deleteInterval(intervalId, taskId);
    } else if (choice < 50) {
        service_->extendInterval(intervalId, taskId, base::Seconds(299));
    } else {
        service_->correctInterval(intervalId, taskId, anyCorrection(now));
    }
}

store::IntervalCorrection RandomOperations::anyCorrection(base::Date now) {
    store::IntervalCorrection correction;
    if (below(2) == 0) {
        correction.creationDate = now + -base::Seconds(below(4000));
    }
    if (below(3) == 0) {
        correction.timeSpent = base::Seconds(std::uniform_real_distribution<>(0, 4000)(random_));
    }
    if (below(3) == 0) {
        correction.maxDuration = base::Seconds(1 + 300 * below(8));
    }
    if (below(3) == 0) {
        correction.taskId = anyTask();
    }
    return correction;
}

void RandomOperations::changeNote(const store::Task& task, int choice) {
    const base::Uuid taskId = task.id().value();
    const base::Uuid noteId = anyOf(task.notes());
    if (choice < 72) {
        service_->deleteNote(noteId, taskId);
    } else if (choice < 76) {
        service_->editNote(noteId, taskId, "Edited " + std::to_string(++made_));
    } else {
        service_->moveNote(noteId, taskId, anyTask());
    }
}

void operate(const std::filesystem::path& directory, unsigned seed, int operations,
             const std::function<void()>& didReturn) {
    RandomOperations random(
        store::PersistentContainerFactory(directory, base::FatalErrorHandler()).makeContainer(),
        seed);
    for (int each = 0; each < operations; ++each) {
        random.doOne();
        didReturn();
    }
}

}  // namespace hearthmark::tests
