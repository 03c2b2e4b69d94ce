// SPDX-License-Identifier: MIT
#include "objectstore/sqlite_store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "objectstore/entity_description.h"
#include "objectstore/row_reader.h"
#include "objectstore/sqlite_file.h"
#include "objectstore/sqlite_schema.h"
#include "objectstore/store_copy.h"
#include "objectstore/store_error.h"
#include "objectstore/store_file.h"

namespace hearthmark::objectstore {

namespace {

void execute(SQLite::Database& database, const std::string& statement,
             StoreError::Cause unsuited = StoreError::Cause::other) {
    translatingErrors(
        statement, [&] { database.exec(statement); }, unsuited);
}

std::string pragma(std::string_view name, std::int32_t value) {
    return "PRAGMA " + std::string(name) + " = " + std::to_string(value);
}

void createSchema(SQLite::Database& database, const Model& model) {
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    for (const std::string& statement : creationStatements(model)) {
        execute(database, statement);
    }
    execute(database, pragma("application_id", model.applicationId));
    execute(database, pragma("user_version", model.version));
    transaction.commit();
}

// Brings a file of an older version along.
void upgradeSchema(SQLite::Database& database, const Model& model) {
    translatingErrors("upgrade", [&] {
        SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
        for (const EntityDescription* entity : model.entities) {
            for (const AttributeDescription& attribute : entity->attributes()) {
                if (!hasColumn(database, "main", entity->name(), attribute.name)) {
                    execute(database, additionStatement(*entity, attribute),
                            StoreError::Cause::damaged);
                }
            }
        }
        execute(database, pragma("user_version", model.version));
        transaction.commit();
    });
}

void createFile(const std::filesystem::path& file, const Model& model) {
    createStoreFile(file, [&model](const std::filesystem::path& draft) {
        translatingErrors("open " + draft.string(), [&] {
            SQLite::Database database(draft.string(), SQLite::OPEN_READWRITE);
            createSchema(database, model);
        });
    });
}

SQLite::Database open(const std::string& name) {
    return translatingErrors("open " + name, [&name] {
        return SQLite::Database(name, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                kBusyTimeoutMilliseconds);
    });
}

SQLite::Database openForWriting(const std::filesystem::path& file) {
    SQLite::Database database = open(file.string());
    // SQLite opens a write-protected file for reading only, without a word.
    if (sqlite3_db_readonly(database.getHandle(), "main") != 0) {
        refuse(file, "The file is write-protected", SQLITE_READONLY, "open " + file.string(),
               StoreError::Cause::noAccess);
    }
    const std::string logging = "PRAGMA journal_mode = WAL";
    translatingErrors(logging, [&] {
        if (database.execAndGet(logging).getString() != "wal") {
            refuse(file, "The file cannot have a write-ahead log", SQLITE_CANTOPEN, logging,
                   StoreError::Cause::other);
        }
    });
    execute(database, "PRAGMA synchronous = FULL");
    execute(database, "PRAGMA foreign_keys = ON");
    // The first look opens the log: from here on others know that the file is in use.
    execute(database, "SELECT count(*) FROM sqlite_schema");
    return database;
}

}  // namespace

// Used by one thread, so SQLite need not lock it at each call.
class SqliteStore::Connection {
 public:
    explicit Connection(SQLite::Database database) : database_(std::move(database)) {
        // Else the name of a column that is missing reads as a text, in every row.
        sqlite3_db_config(database_.getHandle(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    }

    SQLite::Database& database() { return database_; }

    SQLite::Statement& prepared(const std::string& text) {
        auto found = statements_.find(text);
        if (found == statements_.end()) {
            found = statements_.try_emplace(text, database_, text).first;
        }
        return found->second;
    }

 private:
    SQLite::Database database_;
    std::unordered_map<std::string, SQLite::Statement> statements_;
};

SqliteStore::SqliteStore(const std::optional<std::filesystem::path>& file, const Model& model,
                         const std::function<void()>& beforeUpgrade)
    : file_(file) {
    if (!file) {
        connection_ = std::make_unique<Connection>(open(":memory:"));
        translatingErrors("create", [&] { createSchema(connection_->database(), model); });
        return;
    }
    if (storeFileState(*file) != StoreFileState::present) {
        createFile(*file, model);
    } else if (checkMarks(*file, model) < model.version) {
        checkIntegrity(*file);
        if (beforeUpgrade) {
            beforeUpgrade();
        }
        SQLite::Database database = openForWriting(*file);
        upgradeSchema(database, model);
    }
    // Beside the reading of the rows; after it where a journal makes readers wait for each other,
    // or no thread can be had.
    const bool hasJournal = hasWriteAheadLog(*file) || hasRollbackJournal(*file);
    integrity_ =
        std::async(hasJournal ? std::launch::deferred : std::launch::async | std::launch::deferred,
                   [file = *file] { checkIntegrity(file); });
    connection_ = std::make_unique<Connection>(openForReading(*file));
}

void SqliteStore::beginWriting() {
    if (file_) {
        connection_.reset();
        integrity_.get();
        connection_ = std::make_unique<Connection>(openForWriting(*file_));
    }
}

SqliteStore::~SqliteStore() = default;

void SqliteStore::read(const EntityDescription& entity,
                       const std::function<void(const RowReader&)>& visit) {
    const std::string text = selection(entity);
    const auto readAll = [&] {
        // The library's statements hand out one reference-counted object for each column; loading
        // reads every column of the store and takes them from SQLite itself.
        sqlite3_stmt* raw = nullptr;
        sqlite3* handle = connection_->database().getHandle();
        // Each page is read once, and none is to be left between the objects that this makes.
        connection_->database().exec("PRAGMA cache_size = 16");
        if (sqlite3_prepare_v2(handle, text.c_str(), -1, &raw, nullptr) != SQLITE_OK) {
            throw SQLite::Exception(handle);
        }
        const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw,
                                                                              &sqlite3_finalize);
        const RowReader row(raw);
        std::optional<RowKey> last;
        int result = SQLITE_ROW;
        while ((result = sqlite3_step(raw)) == SQLITE_ROW) {
            // Another program may have put a table or a view in the place of ours.
            const std::optional<RowKey> key = row.integer(0);
            if (!key || (last && *key <= *last)) {
                throw StoreError("The rows of " + entity.name() + " have no keys of their own",
                                 SQLITE_CORRUPT, SQLITE_CORRUPT, text, StoreError::Cause::damaged);
            }
            last = key;
            visit(row);
        }
        if (result != SQLITE_DONE) {
            throw SQLite::Exception(handle);
        }
    };
    try {
        translatingErrors(text, readAll, StoreError::Cause::damaged);
    } catch (const std::exception&) {
        if (integrity_.valid()) {
            integrity_.get();  // damage comes before whatever it has led to
        }
        throw;
    }
}

namespace {

struct Binder {
    SQLite::Statement& statement;
    int parameter;

    void operator()(std::monostate) const { statement.bind(parameter); }
    void operator()(std::int64_t number) const { statement.bind(parameter, number); }
    void operator()(double number) const { statement.bind(parameter, number); }
    void operator()(const std::string& text) const {
        // Not copied: the change outlives the step.
        statement.bindNoCopy(parameter, text);
    }
};

void apply(const RowChange& change, SQLite::Statement& statement) {
    int parameter = 1;
    for (const auto& [column, value] : change.columns) {
        std::visit(Binder{statement, parameter++}, value);
    }
    statement.bind(parameter, change.key);
    statement.exec();
    statement.reset();
    statement.clearBindings();
}

}  // namespace

void SqliteStore::write(const std::vector<RowChange>& changes) {
    if (changes.empty()) {
        return;
    }
    translatingErrors("transaction", [&] {
        SQLite::Transaction transaction(connection_->database(),
                                        SQLite::TransactionBehavior::IMMEDIATE);
        for (const RowChange& change : changes) {
            const std::string text = statementFor(change);
            translatingErrors(text, [&] { apply(change, connection_->prepared(text)); });
        }
        transaction.commit();
    });
}

}  // namespace hearthmark::objectstore
