// SPDX-License-Identifier: MIT
#include "support/random_operations.h"

#include <iterator>
#include <utility>

#include "store/note.h"

namespace hearthmark::tests {

std::string contentOf(const std::filesystem::path& directory) {
    return sql(directory / "Hearthmark.sqlite",
               "SELECT pk, name, creationDate FROM Task ORDER BY pk;"
               "SELECT pk, creationDate, duration, maxDuration, task FROM Interval ORDER BY pk;"
               "SELECT pk, state, started, visited, interval FROM RawIntervalState ORDER BY pk;"
               "SELECT pk, creationDate, text, task FROM Note ORDER BY pk");
}

RandomOperations::RandomOperations(std::shared_ptr<objectstore::PersistentContainer> container,
                                   unsigned seed)
    : random_(seed),
      container_(std::move(container)),
      liveDataFactory_(container_),
      service_(liveDataFactory_, container_, clock_, base::FatalErrorHandler()) {}

void RandomOperations::doOne() {
    const base::Date now = clock_->time =
        clock_->time + base::Seconds(std::uniform_real_distribution<>(0, 300)(random_));
    const store::Tasks tasks = container_->viewContext().objects<store::Task>();
    const int choice = below(100);
    if (tasks.empty() || choice < 8) {
        service_.createTask("Task " + std::to_string(++made_));
    } else if (choice < 80) {
        changeTask(*std::next(tasks.begin(), below(tasks.size())), choice, now);
    } else if (choice < 85) {
        service_.finishDueIntervals();
    } else if (choice < 90) {
        service_.markRunningIntervalsVisited(now);
    } else if (choice < 91) {
        clock_->time = now + base::Seconds(40000);
        service_.excludeTime(now, clock_->time);
    } else if (choice < 92) {
        service_.finishIntervalsLeftRunning();
    } else if (choice < 96) {
        service_.resumePausedIntervals();
    } else {
        service_.pauseRunningIntervals();
    }
}

int RandomOperations::below(std::size_t bound) {
    return std::uniform_int_distribution<>(0, static_cast<int>(bound) - 1)(random_);
}

template <class Entity>
base::Uuid RandomOperations::anyOf(const std::vector<Entity*>& entities) {
    return entities[static_cast<std::size_t>(below(entities.size()))]->id().value();
}

void RandomOperations::changeTask(const store::Task& task, int choice, base::Date now) {
    const base::Uuid taskId = task.id().value();
    const base::Uuid newId = base::Uuid::random();
    if (choice < 13) {
        service_.deleteTask(taskId);
    } else if (choice < 45 || task.intervals().empty()) {
        service_.addInterval({.creationDate = now,
                              .duration = base::Seconds(0),
                              .id = newId,
                              .maxDuration = base::Seconds(300 * below(8)),
                              .state = store::IntervalState::running(now)},
                             taskId);
    } else if (choice < 56) {
        service_.finishInterval(anyOf(task.intervals()), taskId);
    } else if (choice < 62) {
        service_.deleteInterval(anyOf(task.intervals()), taskId);
    } else if (choice < 74 || task.notes().empty()) {
        const std::string text(static_cast<std::size_t>(below(3000)), 'n');
        service_.addNote({.creationDate = now, .id = newId, .text = text}, taskId);
    } else {
        service_.deleteNote(anyOf(task.notes()), taskId);
    }
}

}  // namespace hearthmark::tests
