// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <optional>
#include <vector>

#include "base/date.h"
#include "store/creation_date_representable.h"

namespace hearthmark::store {

// The order in which tasks, intervals and notes are shown: without a creation date first, then from
// the newest to the oldest; of equals the one with the higher row key, the later made, comes first.
// A strict weak order, so a rebuild never swaps two rows.
struct NewestFirst {
    template <CreationDateRepresentable Entity>
    bool operator()(const Entity* a, const Entity* b) const {
        const std::optional<base::Date> dateA = a->creationDate();
        const std::optional<base::Date> dateB = b->creationDate();
        if (dateA.has_value() != dateB.has_value()) {
            return !dateA.has_value();
        }
        if (dateA && *dateA != *dateB) {
            return *dateA > *dateB;
        }
        return a->key() > b->key();
    }
};

// Of rows in the order of the store, oldest first, little is left to be sorted.
template <CreationDateRepresentable Entity>
void sortNewestFirst(std::vector<Entity*>& entities) {
    std::ranges::reverse(entities);
    if (!std::ranges::is_sorted(entities, NewestFirst())) {
        std::ranges::sort(entities, NewestFirst());
    }
}

// Of the intervals that run and meet the condition the first in that order; null where there is
// none.
template <class Intervals, class Condition>
auto* newestRunning(const Intervals& intervals, const Condition& condition) {
    auto* newest = static_cast<decltype(&*intervals.begin())>(nullptr);
    for (auto& interval : intervals) {
        if (interval.isRunning() && condition(interval) &&
            (newest == nullptr || NewestFirst()(&interval, newest))) {
            newest = &interval;
        }
    }
    return newest;
}

}  // namespace hearthmark::store
