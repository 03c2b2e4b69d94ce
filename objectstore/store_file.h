// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace hearthmark::objectstore {

// What surrounds the SQLite file in its directory. Failures throw StoreError with the errno.

// What stands at the path of a store. An empty file holds nothing to lose, but may be what is left
// of a store. Throws where it cannot be told, where something else than a file is there, and where
// a link leads to nothing: what it led to may come back.
enum class StoreFileState { missing, empty, present };
StoreFileState storeFileState(const std::filesystem::path& file);

// What tells the file, as it is now, from any other that stands there later: what `stat -L -c
// "%i %s %Y"` prints. Empty where there is none.
std::string storeFileIdentity(const std::filesystem::path& file);

bool isThere(const std::filesystem::path& file);

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

// Gives other names to the journals that lie where a file is missing: they must not be replayed
// over a new one, but may be missed.
void setAsideJournals(const std::filesystem::path& file);

// Removes what SQLite keeps beside the file. Requires: nobody has it open.
void removeJournals(const std::filesystem::path& file);

// Whether a write-ahead log lies beside the file, as after a crash or while others read it.
bool hasWriteAheadLog(const std::filesystem::path& file);

// Whether that log has its index, as while others have the file open.
bool hasLogIndex(const std::filesystem::path& file);

// Whether a journal lies beside the file by which a write of another program is to be undone that
// was interrupted.
bool hasRollbackJournal(const std::filesystem::path& file);

}  // namespace hearthmark::objectstore
