// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "store/undo_history.h"
#include "support/test_store.h"

namespace hearthmark::tests {

// All that is in the store of a directory, as another program reads it, but for the identifiers,
// and for the time of an interval without a task: one that comes back finished is finished before.
std::string contentOf(const std::filesystem::path& directory);

// Does to a store what its users do, at random, through the service: the same to the same store for
// the same seed, but for the identifiers.
class RandomOperations {
 public:
    RandomOperations(std::shared_ptr<objectstore::PersistentContainer> container, unsigned seed);

    void doOne();
    store::UndoHistory& history() { return history_; }

 private:
    int below(std::size_t bound);
    template <class Entity>
    base::Uuid anyOf(const std::vector<Entity*>& entities);
    void changeTask(const store::Task& task, int choice, base::Date now);
    void changeInterval(const store::Task& task, int choice, base::Date now);
    void changeNote(const store::Task& task, int choice);
    void importTasks(base::Date now);
    base::Uuid anyTask();
    store::IntervalCorrection anyCorrection(base::Date now);

    std::mt19937 random_;
    int made_ = 0;
    std::shared_ptr<FakeClock> clock_ = std::make_shared<FakeClock>();
    std::shared_ptr<objectstore::PersistentContainer> container_;
    store::LiveDataProvidingFactory liveDataFactory_;
    std::shared_ptr<store::DataOperationsService> service_;
    store::UndoHistory history_;
};

// Does so many to the store of a directory, as the program, which ends where the store fails.
void operate(const std::filesystem::path& directory, unsigned seed, int operations,
             const std::function<void()>& didReturn);

}  // namespace hearthmark::tests
