// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace hearthmark::store {

// What is to be done about a damaged store. All but the store and the backup are relative to the
// directory of the store.
struct RestoreSteps {
    std::filesystem::path store;
    // Without one the store is set aside only.
    std::optional<std::filesystem::path> backup;
    // The copy of the backup until it is moved into place. Its name does not begin as the store's:
    // all that does so is set aside.
    std::string draft;
    // Where it is set aside to.
    std::string folder;
};

// One line for a shell. It changes nothing before the copy is on the disk, and nothing at all once
// another store stands there: each step waits for the success of the one before.
std::string restoreCommand(const RestoreSteps& restore);

}  // namespace hearthmark::store
