// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/date.h"
#include "store/records.h"

namespace hearthmark::objectstore {
class ManagedObjectContext;
}

namespace hearthmark::store {

class Interval;

// Whether what ran when it was removed goes on running when it is brought back at a moment.
bool goesOnRunning(base::Date removedAt, base::Date now);

void close(Interval& interval, base::Seconds timeSpent);

// Inserts it as new objects; where it was removed too long ago, with nothing running.
void bringBack(const TaskRecord& task, const std::optional<base::Date>& removedAt,
               objectstore::ManagedObjectContext& context, base::Date now);

}  // namespace hearthmark::store
