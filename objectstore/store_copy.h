// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

#include "objectstore/model.h"

// NOLINTNEXTLINE(readability-identifier-naming): the library's
namespace SQLite {
class Database;
}

namespace hearthmark::objectstore {

class EntityDescription;

// Whole stores as files: copies of one, what tells two of them apart, and putting one in the place
// of another. Failures throw StoreError.

// Copies what is committed in the store at this moment, also while it is open here or elsewhere.
// The copy has mode 0600 and no journal, and takes its place once it has passed the check and is on
// the disk; before that, what was in its place stays.
void copyStore(const std::filesystem::path& file, const std::filesystem::path& copy,
               const Model& model);

// Moves `draft` into the place of the store. What is in the store's journal is folded into it
// before, so that it is whole without one: a journal must neither be lost while the store that it
// belongs to is there, nor be replayed over another one. Throws where that cannot be, as while
// another program has the store open. Requires: the store is closed here, and both are in one
// directory.
void replaceStore(const std::filesystem::path& file, const std::filesystem::path& draft);

// Throws unless the file is an intact store of the model, or of an older version of it, which it
// returns. Writes nothing, unless another program left a write of its own to be undone.
std::int32_t checkStore(const std::filesystem::path& file, const Model& model);

// Its two halves: the quick look at what the file says that it is, and the one at every page.
std::int32_t checkMarks(const std::filesystem::path& file, const Model& model);
std::int32_t checkMarks(SQLite::Database& database, const std::filesystem::path& file,
                        const Model& model);
void checkIntegrity(const std::filesystem::path& file);

std::int64_t countRows(const std::filesystem::path& file, const EntityDescription& entity);

// How the rows of one entity differ between two stores.
struct RowDifference {
    std::int64_t added = 0;
    std::int64_t removed = 0;
    std::int64_t changed = 0;

    friend bool operator==(const RowDifference&, const RowDifference&) = default;
};

// What it takes to get from one store to the other. Rows are told apart by the attribute `id`, and
// those without one are not counted. One has changed where its attributes have, or those of a row
// that belongs to it alone.
RowDifference compareRows(const std::filesystem::path& from, const std::filesystem::path& to,
                          const EntityDescription& entity, const Model& model);

}  // namespace hearthmark::objectstore
