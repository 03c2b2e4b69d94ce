// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>

namespace hearthmark::objectstore {

// What surrounds the SQLite file in its directory. Failures throw StoreError with the errno.

// Whether there is a store at the path: a file that is not empty. An empty one holds nothing to
// lose and is replaced like a missing one.
bool storeFileExists(const std::filesystem::path& file);

// Makes the directory and those above it where they are missing, each with mode 0700, and has them
// on the disk when it returns.
void makeStoreDirectory(const std::filesystem::path& directory);

// Makes the directory of the file, lets `fill` write the content into an empty file of
// mode 0600 beside it, and moves that into place once it is on the disk: whoever finds the store
// finds it complete, whenever the power went.
void createStoreFile(const std::filesystem::path& file,
                     const std::function<void(const std::filesystem::path&)>& fill);

// Whether a write-ahead log lies beside the file, as after a crash or while others read it.
bool hasWriteAheadLog(const std::filesystem::path& file);

}  // namespace hearthmark::objectstore
