// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace hearthmark::ctl {

// Whether a program holds the lock of the directory's store, as Hearthmark does while it runs. It
// is looked for among the locks that the kernel tells of and not tried: a program that starts at
// this moment must not find it taken. False where it cannot be told, as for a program that runs in
// another container.
bool isProgramRunning(const std::filesystem::path& directory);

}  // namespace hearthmark::ctl
