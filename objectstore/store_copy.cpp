// SPDX-License-Identifier: MIT
#include "objectstore/store_copy.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "objectstore/entity_description.h"
#include "objectstore/sqlite_file.h"
#include "objectstore/store_file.h"

namespace hearthmark::objectstore {

namespace {

std::int64_t count(SQLite::Database& database, const std::string& rows) {
    const std::string statement = "SELECT count(*) FROM " + rows;
    return translatingErrors(statement, [&] { return database.execAndGet(statement).getInt64(); });
}

// Whether the attributes of two rows differ, the second one in the attached store.
std::string differences(SQLite::Database& database, const EntityDescription& entity,
                        const std::string& row, const std::string& other) {
    std::string differs = "0";
    for (const AttributeDescription& attribute : entity.attributes()) {
        // A store of an older version lacks it, and gets it as absent when it is opened.
        const bool isThere = hasColumn(database, "other", entity.name(), attribute.name);
        differs += " OR " + row + '.' + attribute.name + " IS NOT " +
                   (isThere ? other + '.' + attribute.name : "NULL");
    }
    return differs;
}

// Needs no journal of its own: it is thrown away unless it becomes complete.
void copyContent(const std::filesystem::path& file, const std::filesystem::path& draft) {
    SQLite::Database source = openForReading(file);
    translatingErrors("backup to " + draft.string(), [&] {
        SQLite::Database destination(draft.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        destination.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        const int result = SQLite::Backup(destination, source).executeStep();
        if (result != SQLITE_DONE) {
            refuse(file, sqlite3_errstr(result), result, "backup", StoreError::Cause::held);
        }
        destination.exec("PRAGMA journal_mode = DELETE");
    });
}

void foldJournals(const std::filesystem::path& file) {
    const std::string statement = "PRAGMA journal_mode = DELETE";
    translatingErrors(statement, [&] {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                  kBusyTimeoutMilliseconds);
        if (database.execAndGet(statement).getString() != "delete") {
            refuse(file, "The file has to keep its journal", SQLITE_BUSY, statement,
                   StoreError::Cause::held);
        }
    });
}

// The check reports a page that the disk does not give back as one more finding, with SQLite's
// code, or without it where the page holds nothing.
StoreError::Cause causeOfFinding(const std::string& finding) {
    if (finding.find("failed to get page") != std::string::npos) {
        return causeOfCode(SQLITE_IOERR, StoreError::Cause::damaged);
    }
    const std::string mark = "error code=";
    const std::size_t place = finding.find(mark);
    const int code =
        place != std::string::npos ? std::atoi(finding.c_str() + place + mark.size()) : 0;
    return code != 0 ? causeOfCode(code, StoreError::Cause::damaged) : StoreError::Cause::damaged;
}

void checkIntegrity(SQLite::Database& database, const std::filesystem::path& file) {
    const std::string check = "PRAGMA integrity_check(1)";
    const std::string finding = translatingErrors(
        check, [&] { return database.execAndGet(check).getString(); }, StoreError::Cause::damaged);
    if (finding != "ok") {
        const StoreError::Cause cause = causeOfFinding(finding);
        refuse(file,
               (cause == StoreError::Cause::damaged ? "The file is corrupt ("
                                                    : "The file cannot be read (") +
                   finding + ')',
               SQLITE_CORRUPT, check, cause);
    }
}

// Of marks that are not ours: damage may have changed them.
StoreError::Cause causeUnlessDamaged(SQLite::Database& database, const std::filesystem::path& file,
                                     StoreError::Cause cause) {
    try {
        checkIntegrity(database, file);
        return cause;
    } catch (const StoreError& error) {
        return error.cause();
    }
}

}  // namespace

void copyStore(const std::filesystem::path& file, const std::filesystem::path& copy,
               const Model& model) {
    createStoreFile(copy, [&](const std::filesystem::path& draft) {
        copyContent(file, draft);
        checkStore(draft, model);
    });
}

void replaceStore(const std::filesystem::path& file, const std::filesystem::path& draft) {
    if (storeFileState(file) == StoreFileState::present) {
        foldJournals(file);
    } else {
        setAsideJournals(file);
    }
    removeJournals(file);
    moveStoreFile(draft, file);
}

std::int32_t checkStore(const std::filesystem::path& file, const Model& model) {
    const std::int32_t version = checkMarks(file, model);
    checkIntegrity(file);
    return version;
}

void checkIntegrity(const std::filesystem::path& file) {
    SQLite::Database database = openForReading(file);
    checkIntegrity(database, file);
}

std::int32_t checkMarks(const std::filesystem::path& file, const Model& model) {
    SQLite::Database database = openForReading(file);
    return checkMarks(database, file, model);
}

std::int32_t checkMarks(SQLite::Database& database, const std::filesystem::path& file,
                        const Model& model) {
    const auto number = [&database](const std::string& name) {
        const std::string statement = "PRAGMA " + name;
        return translatingErrors(statement,
                                 [&] { return database.execAndGet(statement).getInt(); });
    };
    using Cause = StoreError::Cause;
    if (number("application_id") != model.applicationId) {
        refuse(file, "The file belongs to another application", SQLITE_NOTADB,
               "PRAGMA application_id",
               causeUnlessDamaged(database, file, Cause::otherApplication));
    }
    const int version = number("user_version");
    // Whatever its integrity: this library may take for damage what a newer one writes.
    if (version > model.version) {
        refuse(file, "The file was written by a newer version of this program", SQLITE_MISMATCH,
               "PRAGMA user_version", Cause::newerVersion);
    }
    if (version < 1) {
        refuse(file, "The file has a format that this program does not know", SQLITE_MISMATCH,
               "PRAGMA user_version", causeUnlessDamaged(database, file, Cause::unknownVersion));
    }
    return version;
}

std::int64_t countRows(const std::filesystem::path& file, const EntityDescription& entity) {
    SQLite::Database database = openForReading(file);
    return count(database, entity.name());
}

RowDifference compareRows(const std::filesystem::path& from, const std::filesystem::path& to,
                          const EntityDescription& entity, const Model& model) {
    SQLite::Database database = openForReading(from);
    const std::string attach = "ATTACH ? AS other";
    translatingErrors(attach, [&] {
        SQLite::Statement statement(database, attach);
        statement.bind(1, uriForReading(to));
        statement.exec();
    });
    const std::string here = "main." + entity.name();
    const std::string there = "other." + entity.name();
    const auto missing = [](const std::string& rows, const std::string& others) {
        return rows + " WHERE id NOT IN (SELECT id FROM " + others + " WHERE id IS NOT NULL)";
    };
    std::ostringstream pairs;
    pairs << here << " AS a JOIN " << there << " AS b ON a.id = b.id";
    std::string differs = differences(database, entity, "a", "b");
    for (const EntityDescription* part : model.entities) {
        for (const ReferenceDescription& reference : part->references()) {
            if (!reference.isToMany && &reference.destination() == &entity) {
                const std::string& name = part->name();
                const std::string mine = "a" + name;
                const std::string theirs = "b" + name;
                const std::string owner = '.' + reference.name + " = ";
                pairs << " LEFT JOIN main." << name << " AS " << mine << " ON " << mine << owner
                      << "a.pk LEFT JOIN other." << name << " AS " << theirs << " ON " << theirs
                      << owner << "b.pk";
                differs += " OR " + differences(database, *part, mine, theirs);
            }
        }
    }
    return {.added = count(database, missing(there, here)),
            .removed = count(database, missing(here, there)),
            .changed = count(database, pairs.str() + " WHERE " + differs)};
}

}  // namespace hearthmark::objectstore
