// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "ctl/status_text.h"

namespace hearthmark::ctl {

// Writes the status to standard output: a line at each change and at each whole second of the focus
// that runs; nothing else wakes the process. Returns when nobody reads the output any more, or when
// it cannot be written, which std::cout then says.
void follow(const std::filesystem::path& storeDirectory, StatusForm form);

}  // namespace hearthmark::ctl
