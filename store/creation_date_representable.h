// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/date.h"

namespace hearthmark::store {

// What is ordered by its creation date.
class CreationDateRepresentable {
 public:
    virtual const std::optional<base::Date>& creationDate() const = 0;

 protected:
    ~CreationDateRepresentable() = default;
};

}  // namespace hearthmark::store
