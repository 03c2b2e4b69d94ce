// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <unordered_map>

#include "base/uuid.h"

namespace hearthmark::ui {

// What a row of a list is known by from one state to the next.
struct RowKey {
    struct Hash {
        std::size_t operator()(const RowKey& key) const {
            return key.id.hash() + static_cast<std::size_t>(key.ordinal) * 8 +
                   static_cast<std::size_t>(key.kind);
        }
    };

    bool operator==(const RowKey&) const = default;

    int kind = 0;
    base::Uuid id;
    // Which of several rows with one id: a damaged store may hold an id twice.
    int ordinal = 0;
};

// Makes the keys of one state's rows, in their order.
class RowKeys {
 public:
    RowKey next(const base::Uuid& id, int kind = 0) {
        RowKey key{.kind = kind, .id = id, .ordinal = 0};
        key.ordinal = counts_[key]++;
        return key;
    }

 private:
    std::unordered_map<RowKey, int, RowKey::Hash> counts_;
};

}  // namespace hearthmark::ui
