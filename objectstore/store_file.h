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
// finds it complete, whenever the power went. Where that fails, nothing of it stays.
void createStoreFile(const std::filesystem::path& file,
                     const std::function<void(const std::filesystem::path&)>& fill);

// Moves a file within one directory, in place of what is there, and has that on the disk when it
// returns.
void moveStoreFile(const std::filesystem::path& from, const std::filesystem::path& to);

// A file that is missing is removed already.
void removeStoreFile(const std::filesystem::path& file);

// Removes what SQLite keeps beside the file. Requires: nobody has it open.
void removeJournals(const std::filesystem::path& file);

// Whether a write-ahead log lies beside the file, as after a crash or while others read it.
bool hasWriteAheadLog(const std::filesystem::path& file);

}  // namespace hearthmark::objectstore
