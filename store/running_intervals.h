// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "objectstore/managed_object_context.h"
#include "objectstore/object_index.h"
#include "store/interval.h"
#include "store/raw_interval_state.h"

namespace hearthmark::store {

// The index of running intervals, so that a tick costs what runs and not what is stored. Covers
// intervals without a task too. The context must outlive it.
class RunningIntervals {
 public:
    explicit RunningIntervals(objectstore::ManagedObjectContext& context);

    // As of the last save, oldest row first; a copy, so that they may be changed while walked.
    std::vector<std::shared_ptr<Interval>> intervals() const;

 private:
    objectstore::ObjectIndex<RawIntervalState> states_;
};

}  // namespace hearthmark::store
