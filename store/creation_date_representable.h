// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <optional>

#include "base/date.h"

namespace hearthmark::store {

// What is ordered by its creation date.
template <class Entity>
concept CreationDateRepresentable = requires(const Entity& entity) {
    { entity.creationDate() } -> std::same_as<std::optional<base::Date>>;
};

}  // namespace hearthmark::store
