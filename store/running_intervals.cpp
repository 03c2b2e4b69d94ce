// SPDX-License-Identifier: MIT
#include "store/running_intervals.h"

namespace hearthmark::store {

RunningIntervals::RunningIntervals(objectstore::ManagedObjectContext& context)
    : states_(context, [](const RawIntervalState& state) { return state.isRunning(); }) {}

std::vector<std::shared_ptr<Interval>> RunningIntervals::intervals() const {
    std::vector<std::shared_ptr<Interval>> intervals;
    for (const std::shared_ptr<RawIntervalState>& state : states_.objects()) {
        if (Interval* interval = state->interval()) {
            intervals.push_back(std::static_pointer_cast<Interval>(interval->shared_from_this()));
        }
    }
    return intervals;
}

}  // namespace hearthmark::store
