// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "objectstore/store_error.h"

// NOLINTNEXTLINE(readability-identifier-naming): the library's
namespace SQLite {
class Database;
}

namespace hearthmark::objectstore {

// How long a statement waits for a lock that another program holds on the file.
constexpr int kBusyTimeoutMilliseconds = 5000;

// What a result code of SQLite says; `unsuited` where it cannot make sense of the statement.
StoreError::Cause causeOfCode(int code, StoreError::Cause unsuited);

// Throws what SQLite just threw as a StoreError that names the statement; anything else as it is.
// Requires: an exception is being handled.
[[noreturn]] void rethrowAsStoreError(std::string_view statement, StoreError::Cause unsuited);

// Runs `work` and turns what SQLite reports into a StoreError that names the statement. `unsuited`
// is the cause where SQLite cannot make sense of it: of a statement that suits every store it is
// that this one is damaged.
template <class Work>
auto translatingErrors(std::string_view statement, const Work& work,
                       StoreError::Cause unsuited = StoreError::Cause::other) {
    try {
        return work();
    } catch (const std::runtime_error&) {
        rethrowAsStoreError(statement, unsuited);
    }
}

// The name by which SQLite opens the file only to look at it. Without a journal the file is read as
// immutable, which takes no lock and makes no file beside it. The frames of a write-ahead log
// belong to the content. What a rollback journal undoes does not: then SQLite has to be let write,
// or a good file reads as a damaged one.
std::string uriForReading(const std::filesystem::path& file);
// Any other such name, by parameters of SQLite's: "?mode=ro".
std::string uri(const std::filesystem::path& file, std::string_view parameters);
SQLite::Database openForReading(const std::filesystem::path& file);

// Whether a table has a column. `schema` is "main", or the name that another file was attached by.
bool hasColumn(SQLite::Database& database, const std::string& schema, const std::string& table,
               const std::string& column);

[[noreturn]] void refuse(const std::filesystem::path& file, const std::string& reason, int code,
                         std::string statement, StoreError::Cause cause);

}  // namespace hearthmark::objectstore
