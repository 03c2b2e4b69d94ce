// SPDX-License-Identifier: MIT
#pragma once

#include <unordered_map>

#include "base/uuid.h"

namespace hearthmark::ui {

// Numbers the rows of one id, since a damaged store may hold an id twice.
class Ordinals {
 public:
    // 0 at the first call with an id, then 1, and so on.
    int next(const base::Uuid& id) { return counts_[id]++; }

 private:
    std::unordered_map<base::Uuid, int> counts_;
};

}  // namespace hearthmark::ui
