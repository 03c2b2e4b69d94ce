// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "objectstore/store_error.h"

namespace hearthmark::exporting {

// Why a file that a person chose could not be read or written, in a sentence.
std::string reasonOf(const objectstore::StoreError& error, const std::filesystem::path& file);

}  // namespace hearthmark::exporting
