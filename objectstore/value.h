// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace hearthmark::objectstore {

// The primary key of a row, unique within its entity and never changed.
using RowKey = std::int64_t;

// The content of one column: nothing (NULL), INTEGER, REAL or TEXT.
using Value = std::variant<std::monostate, std::int64_t, double, std::string>;

}  // namespace hearthmark::objectstore
