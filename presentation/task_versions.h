// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

#include "store/task.h"

namespace hearthmark::presentation {

// Tells whether tasks have changed since something was made of them.
class TaskVersions {
 public:
    // Whether they are others than those of the last call, or more of one of them has changed since
    // than the time that runs.
    bool renew(const std::vector<const store::Task*>& tasks) {
        const auto version = [](const store::Task* task) -> const auto& {
            return task->intervalSummary();
        };
        if (std::ranges::equal(tasks, versions_, {}, version)) {
            return false;
        }
        versions_.clear();
        std::ranges::transform(tasks, std::back_inserter(versions_), version);
        return true;
    }

 private:
    // Held, so that no address comes back.
    std::vector<std::shared_ptr<const store::Task::IntervalSummary>> versions_;
};

}  // namespace hearthmark::presentation
