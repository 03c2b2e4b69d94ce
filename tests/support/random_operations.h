// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/clock.h"
#include "store/data_operations_service.h"
#include "store/live_data.h"

namespace hearthmark::tests {

// Does to a store what its users do, at random, through the service.
class RandomOperations {
 public:
    // Is told each operation before it begins and once it has returned, as words parted by tabs.
    // Dates and durations are in seconds and read back to the same double.
    using Tell = std::function<void(const std::string& line)>;

    // The same for the same seed and start, but for the identifiers.
    RandomOperations(std::shared_ptr<objectstore::PersistentContainer> container, unsigned seed,
                     Tell tell, base::Date start = base::SystemClock().now());

    void doOne();

 private:
    class SetClock;

    int below(std::size_t bound);
    template <class Entity>
    base::Uuid anyOf(const std::vector<Entity*>& entities);
    template <class... Words>
    void tell(const std::string& first, const Words&... words);
    void createTask();
    void changeTask(const store::Task& task, int choice, base::Date now);

    std::mt19937 random_;
    unsigned seed_;
    Tell tell_;
    int made_ = 0;
    std::shared_ptr<SetClock> clock_;
    std::shared_ptr<objectstore::PersistentContainer> container_;
    store::LiveDataProvidingFactory liveDataFactory_;
    store::DataOperationsService service_;
};

}  // namespace hearthmark::tests
