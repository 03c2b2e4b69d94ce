// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "objectstore/store_error.h"

namespace hearthmark::store {

// What is said before the program ends over its store: "<location>: Fatal error: Unresolved error
// <description>, <details>".
std::string unresolvedError(std::string_view location, const objectstore::StoreError& error);

}  // namespace hearthmark::store
