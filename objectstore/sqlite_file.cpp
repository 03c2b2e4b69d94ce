// SPDX-License-Identifier: MIT
#include "objectstore/sqlite_file.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <utility>

#include "objectstore/store_file.h"

namespace hearthmark::objectstore {

namespace {

using Cause = StoreError::Cause;

constexpr int kPrimaryCode = 0xFF;

std::string_view modeFor(const std::filesystem::path& file) {
    if (hasRollbackJournal(file)) {
        return "";
    }
    return hasWriteAheadLog(file) ? "?mode=ro" : "?immutable=1";
}

}  // namespace

StoreError::Cause causeOfCode(int code, Cause unsuited) {
    switch (code & kPrimaryCode) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return Cause::damaged;
        case SQLITE_ERROR:
            return unsuited;
        case SQLITE_FULL:
            return Cause::diskFull;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
            return Cause::held;
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            return Cause::noAccess;
        case SQLITE_IOERR:
            return Cause::inputOutput;
        default:
            return Cause::other;
    }
}

void rethrowAsStoreError(std::string_view statement, Cause unsuited) {
    try {
        throw;
    } catch (const SQLite::Exception& error) {
        throw StoreError(error.what(), error.getErrorCode(), error.getExtendedErrorCode(),
                         std::string(statement), causeOfCode(error.getErrorCode(), unsuited));
    }
}

std::string uriForReading(const std::filesystem::path& file) {
    return uri(file, modeFor(file));
}

std::string uri(const std::filesystem::path& file, std::string_view parameters) {
    static constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    // An authority that is empty: else a path that begins with two slashes would name one.
    std::string name = file.is_absolute() ? "file://" : "file:";
    for (const char c : file.string()) {
        if (c == '%' || c == '?' || c == '#') {
            name += '%';
            name += kHexDigits[static_cast<unsigned char>(c) >> 4U];
            name += kHexDigits[static_cast<unsigned char>(c) & 0xFU];
        } else {
            name += c;
        }
    }
    return name.append(parameters);
}

bool hasColumn(SQLite::Database& database, const std::string& schema, const std::string& table,
               const std::string& column) {
    const std::string text = "SELECT 1 FROM pragma_table_info(?, ?) WHERE name = ? COLLATE NOCASE";
    return translatingErrors(text, [&] {
        SQLite::Statement statement(database, text);
        statement.bind(1, table);
        statement.bind(2, schema);
        statement.bind(3, column);
        return statement.executeStep();
    });
}

void refuse(const std::filesystem::path& file, const std::string& reason, int code,
            std::string statement, Cause cause) {
    throw StoreError(reason + ": " + file.string(), code, code, std::move(statement), cause);
}

SQLite::Database openForReading(const std::filesystem::path& file) {
    return translatingErrors("open " + file.string(), [&file] {
        const int mode = hasRollbackJournal(file) ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY;
        return SQLite::Database(uriForReading(file), mode | SQLite::OPEN_URI | SQLite::OPEN_NOMUTEX,
                                kBusyTimeoutMilliseconds);
    });
}

}  // namespace hearthmark::objectstore
