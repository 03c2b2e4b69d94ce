// SPDX-License-Identifier: MIT
#include "objectstore/store_reading.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <string_view>

#include "objectstore/sqlite_file.h"
#include "objectstore/store_copy.h"
#include "objectstore/store_error.h"
#include "objectstore/store_file.h"

namespace hearthmark::objectstore {

namespace {

// Whoever has the file open may quit between two looks at what lies beside it.
constexpr int kMostTries = 5;

// How the file is read without a trace. The index of a log is shared by all that have the file
// open, so where there is one it is read and left as it is. Where there is none nobody has the file
// open: then SQLite makes one in its own memory if it need not lock the file.
std::string_view parametersFor(const std::filesystem::path& file) {
    if (hasRollbackJournal(file)) {
        return "?mode=ro";
    }
    if (!hasWriteAheadLog(file)) {
        return "?immutable=1";
    }
    return hasLogIndex(file) ? "?mode=ro&readonly_shm=1" : "?mode=ro&vfs=unix-none";
}

std::unique_ptr<SQLite::Database> open(const std::filesystem::path& file) {
    const std::string name = uri(file, parametersFor(file));
    return translatingErrors("open " + name, [&name] {
        auto database = std::make_unique<SQLite::Database>(
            name, SQLite::OPEN_READONLY | SQLite::OPEN_URI | SQLite::OPEN_NOMUTEX,
            kBusyTimeoutMilliseconds);
        sqlite3* handle = database->getHandle();
        sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        // Else the name of a column that is missing reads as a text.
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        if (name.ends_with("unix-none")) {
            database->exec("PRAGMA locking_mode = EXCLUSIVE");
        }
        // Each page is read about once. From here on all is as of one moment.
        database->exec("PRAGMA cache_size = 64; BEGIN; SELECT 1 FROM sqlite_schema");
        return database;
    });
}

bool mayBePassing(const StoreError& error) {
    return error.cause() == StoreError::Cause::noAccess ||
           error.cause() == StoreError::Cause::inputOutput;
}

std::unique_ptr<SQLite::Database> openAtLast(const std::filesystem::path& file) {
    for (int tried = 1;; ++tried) {
        try {
            return open(file);
        } catch (const StoreError& error) {
            if (error.extendedCode() == SQLITE_READONLY_ROLLBACK) {
                refuse(file, "A write of another program has to be undone, which Hearthmark does",
                       error.code(), error.statement(), StoreError::Cause::other);
            }
            if (tried == kMostTries || !mayBePassing(error)) {
                throw;
            }
        }
    }
}

struct Binder {
    sqlite3_stmt* statement;
    int parameter;

    int operator()(std::monostate) const { return sqlite3_bind_null(statement, parameter); }
    int operator()(std::int64_t number) const {
        return sqlite3_bind_int64(statement, parameter, number);
    }
    int operator()(double number) const {
        return sqlite3_bind_double(statement, parameter, number);
    }
    int operator()(const std::string& text) const {
        return sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()),
                                 SQLITE_TRANSIENT);
    }
};

}  // namespace

StoreReading::StoreReading(const std::filesystem::path& file, const Model& model)
    : database_(openAtLast(file)), version_(checkMarks(*database_, file, model)) {}

StoreReading::~StoreReading() = default;

void StoreReading::read(const std::string& query, const std::vector<Value>& parameters,
                        const std::function<void(const RowReader&)>& visit) {
    // A query that suits every store and not this one says that it is damaged.
    translatingErrors(
        query,
        [&] {
            sqlite3* handle = database_->getHandle();
            // The library's statements hand out one reference-counted object for each column.
            sqlite3_stmt* raw = nullptr;
            int result = sqlite3_prepare_v2(handle, query.c_str(), -1, &raw, nullptr);
            const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(
                raw, &sqlite3_finalize);
            int parameter = 0;
            for (const Value& value : parameters) {
                result = result == SQLITE_OK ? std::visit(Binder{raw, ++parameter}, value) : result;
            }
            const RowReader row(raw);
            while ((result == SQLITE_OK || result == SQLITE_ROW) &&
                   (result = sqlite3_step(raw)) == SQLITE_ROW) {
                visit(row);
            }
            if (result != SQLITE_DONE) {
                throw SQLite::Exception(handle);
            }
        },
        StoreError::Cause::damaged);
}

}  // namespace hearthmark::objectstore
