// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "store/edit.h"
#include "store/records.h"

namespace hearthmark::objectstore {
class ManagedObjectContext;
}

namespace hearthmark::store {

// What an import adds.
struct ImportCounts {
    std::size_t tasks = 0;
    std::size_t intervals = 0;
    std::size_t notes = 0;
    // Tasks, intervals and notes that have no id and are passed over.
    std::size_t withoutId = 0;

    bool isEmpty() const { return tasks == 0 && intervals == 0 && notes == 0; }

    friend bool operator==(const ImportCounts&, const ImportCounts&) = default;
};

struct ImportPlan {
    AddMany edit;
    ImportCounts counts;
};

// What of the records the store has not. Ids count, and nothing else; an interval that was deleted
// is still in the store and does not come back.
ImportPlan planImport(const std::vector<TaskRecord>& tasks,
                      const objectstore::ManagedObjectContext& context);

}  // namespace hearthmark::store
