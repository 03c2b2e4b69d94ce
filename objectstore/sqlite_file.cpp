// SPDX-License-Identifier: MIT
#include "objectstore/sqlite_file.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <utility>

#include "objectstore/store_file.h"

namespace hearthmark::objectstore {

void rethrowAsStoreError(std::string_view statement) {
    try {
        throw;
    } catch (const SQLite::Exception& error) {
        throw StoreError(error.what(), error.getErrorCode(), error.getExtendedErrorCode(),
                         std::string(statement));
    }
}

std::string uriForReading(const std::filesystem::path& file) {
    static constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    // An authority that is empty: else a path that begins with two slashes would name one.
    std::string uri = file.is_absolute() ? "file://" : "file:";
    for (const char c : file.string()) {
        if (c == '%' || c == '?' || c == '#') {
            uri += '%';
            uri += kHexDigits[static_cast<unsigned char>(c) >> 4U];
            uri += kHexDigits[static_cast<unsigned char>(c) & 0xFU];
        } else {
            uri += c;
        }
    }
    return uri.append(hasWriteAheadLog(file) ? "?mode=ro" : "?immutable=1");
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
            std::string statement) {
    throw StoreError(reason + ": " + file.string(), code, code, std::move(statement));
}

SQLite::Database openForReading(const std::filesystem::path& file) {
    return translatingErrors("open " + file.string(), [&file] {
        return SQLite::Database(uriForReading(file),
                                SQLite::OPEN_READONLY | SQLite::OPEN_URI | SQLite::OPEN_NOMUTEX,
                                kBusyTimeoutMilliseconds);
    });
}

}  // namespace hearthmark::objectstore
