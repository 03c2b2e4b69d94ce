// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "store/edit.h"

namespace hearthmark::store {

// How apply() applies those edits that are of many rows.
std::optional<Edit> addMany(const AddMany& edit, const Tasks& tasks,
                            objectstore::ManagedObjectContext& context, base::Date now);
std::optional<Edit> removeMany(const RemoveMany& edit, const Tasks& tasks,
                               objectstore::ManagedObjectContext& context, base::Date now);

}  // namespace hearthmark::store
