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

// Throws what SQLite just threw as a StoreError that names the statement; anything else as it is.
// Requires: an exception is being handled.
[[noreturn]] void rethrowAsStoreError(std::string_view statement);

// Runs `work` and turns what SQLite reports into a StoreError that names the statement.
template <class Work>
auto translatingErrors(std::string_view statement, const Work& work) {
    try {
        return work();
    } catch (const std::runtime_error&) {
        rethrowAsStoreError(statement);
    }
}

// The name by which SQLite opens the file only to look at it. Without a write-ahead log the file is
// read as immutable, which takes no lock and makes no file beside it; with one, its frames belong
// to the content.
std::string uriForReading(const std::filesystem::path& file);
SQLite::Database openForReading(const std::filesystem::path& file);

// Whether a table has a column. `schema` is "main", or the name that another file was attached by.
bool hasColumn(SQLite::Database& database, const std::string& schema, const std::string& table,
               const std::string& column);

[[noreturn]] void refuse(const std::filesystem::path& file, const std::string& reason, int code,
                         std::string statement);

}  // namespace hearthmark::objectstore
