// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "store/interval_state.h"
#include "store/live_data.h"
#include "store/store_reader.h"

namespace hearthmark::exporting {

// One interval as a table or a calendar shows it: a value, so that another thread may write it
// while the store goes on changing.
struct IntervalRow {
    std::optional<base::Uuid> taskId;
    std::optional<std::string> taskName;
    std::optional<base::Uuid> id;
    base::Date start;
    // As late as its time spent would have it, since nothing tells when it stood still.
    base::Date end;
    // While it runs, up to the moment of the rows.
    base::Seconds timeSpent;
    // 0 for no limit.
    base::Seconds length;
    // Absent where the store says nothing that means anything.
    std::optional<store::StateCode> state;
};

// Those of tasks that were begun in [from, to), the first begun first. What has no date belongs to
// no range. Main thread.
std::vector<IntervalRow> intervalRows(const store::Tasks& tasks, base::Date from, base::Date to,
                                      base::Date now);

// The same of what a store that was not opened has of such a range; anywhere.
std::vector<IntervalRow> intervalRows(std::vector<store::IntervalEntry> intervals, base::Date now);

}  // namespace hearthmark::exporting
