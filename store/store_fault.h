// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

#include "objectstore/store_error.h"

namespace hearthmark::store {

// A failure in words for somebody who does not know what a result code is. Empty where no more is
// known than the error says.
struct StoreFault {
    // "The disk is full."
    std::string_view reason;
    // What to do where the program does not start. Empty for damage, which has advice of its own.
    std::string_view remedy;
};

// Of a failure of what lies in the directory.
StoreFault faultOf(const objectstore::StoreError& error, const std::filesystem::path& directory);

}  // namespace hearthmark::store
