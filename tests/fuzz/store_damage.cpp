// SPDX-License-Identifier: MIT
#include "fuzz/store_damage.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>

namespace hearthmark::fuzz {

namespace {

using Texts = std::vector<std::string>;

// The first column is the key.
const std::vector<std::pair<std::string, Texts>> kTables{
    {"Task", {"pk", "id", "creationDate", "name", "doneDate"}},
    {"Interval", {"pk", "id", "creationDate", "duration", "maxDuration", "task"}},
    {"RawIntervalState", {"pk", "state", "started", "visited", "interval"}},
    {"Note", {"pk", "id", "creationDate", "text", "task"}}};
const Texts kValues{"NULL",
                    "9e999",
                    "-9e999",
                    "3.2e16",
                    "-3.2e16",
                    "1e15",
                    "1.7e308",
                    "-1.7e308",
                    "5e-324",
                    "-0.0",
                    "725e6",
                    "725000100.5",
                    "x'FF'",
                    "zeroblob(3000)",
                    "printf('%3000s', '')",
                    "'A0000000-0000-4000-8000-000000000001'"};
// Make other tables than ours of those that have their names.
const Texts kForeignSchemas{
    "ALTER TABLE Task RENAME COLUMN name TO title",
    "ALTER TABLE Note RENAME TO Remark",
    "DROP TABLE Interval; CREATE VIEW Interval AS SELECT *, pk AS task FROM Task",
    "CREATE TABLE t AS SELECT * FROM Task; DROP TABLE Task; ALTER TABLE t RENAME TO Task",
    "CREATE TRIGGER a BEFORE UPDATE ON RawIntervalState BEGIN SELECT RAISE(ABORT, ''); END",
    "PRAGMA user_version = 1000",
    "PRAGMA user_version = 1; ALTER TABLE Task DROP COLUMN doneDate"};

std::string hex(const std::string& bytes) {
    std::string digits;
    for (const char byte : bytes) {
        digits += "0123456789ABCDEF"[static_cast<unsigned char>(byte) / 16];
        digits += "0123456789ABCDEF"[static_cast<unsigned char>(byte) % 16];
    }
    return digits;
}

// Draws zeros where the bytes have ended.
struct Dice {
    std::string take(std::size_t count) {
        const auto taken = bytes.first(std::min(count, bytes.size()));
        bytes = bytes.subspan(taken.size());
        return {taken.begin(), taken.end()};
    }
    template <class Number>
    Number number() {
        const std::string taken = take(sizeof(Number));
        Number number = 0;
        std::memcpy(&number, taken.data(), taken.size());
        return number;
    }
    std::size_t below(std::size_t bound) { return number<std::uint8_t>() % bound; }
    const auto& oneOf(const auto& options) { return options[below(options.size())]; }
    std::string value() {
        switch (below(5)) {
            case 0:
                return std::to_string(number<std::int8_t>());
            case 1:
                return std::to_string(number<std::int64_t>());
            case 2:
                return "CAST(x'" + hex(take(below(24))) + "' AS TEXT)";
            default:
                return oneOf(kValues);
        }
    }
    std::string rowChange() {
        const auto& [table, columns] = oneOf(kTables);
        const std::string key = std::to_string(below(8));
        if (below(2) == 0) {
            return "UPDATE " + table + " SET " + oneOf(columns) + " = " + value() +
                   " WHERE pk = " + key;
        }
        std::string insertion = "REPLACE INTO " + table + " VALUES (" + key;
        for (std::size_t column = 1; column < columns.size(); ++column) {
            insertion += ", " + value();
        }
        return insertion + ')';
    }

    std::span<const std::uint8_t> bytes;
};

}  // namespace

std::string soundFile(tests::TestStore& store) {
    using store::IntervalState;
    const base::Date start = store.clock->time = tests::at(725e6);
    store::Task& task = store.addTask("first", start);
    store.addInterval(task, IntervalState::running(start, start), base::Seconds(1700));
    store.addInterval(task, IntervalState::paused(), base::Seconds(90));
    store.addInterval(task, IntervalState::finished(), base::Seconds(9), {}, start);
    store.service->addNote({start, base::Uuid::random(), "note"}, *task.id());
    store.addTask("second", start);
    store.close();
    store.sql("PRAGMA journal_mode = DELETE; PRAGMA page_size = 512; VACUUM");
    return tests::bytesOf(store.file);
}

StoreDamage::StoreDamage(std::span<const std::uint8_t> bytes) {
    Dice dice{bytes};
    isOfRowsAlone = dice.below(2) == 0;
    while (!dice.bytes.empty()) {
        const std::size_t kind = isOfRowsAlone ? 0 : dice.below(4);
        if (kind == 3) {
            const auto offset = dice.number<std::uint16_t>();
            overwrites.emplace_back(offset, dice.take(dice.below(16) + 1));
        } else {
            statements.push_back(kind == 2 ? dice.oneOf(kForeignSchemas) : dice.rowChange());
        }
    }
}

void StoreDamage::apply(const std::string& content, const std::filesystem::path& file) const {
    std::filesystem::remove(file.string() + "-wal");
    std::ofstream(file, std::ios::binary) << content;
    {
        sqlite3* opened = nullptr;
        sqlite3_open(file.c_str(), &opened);
        const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, &sqlite3_close);
        sqlite3_exec(opened, "PRAGMA synchronous = OFF; BEGIN", nullptr, nullptr, nullptr);
        for (const std::string& statement : statements) {
            sqlite3_exec(opened, statement.c_str(), nullptr, nullptr, nullptr);
        }
        sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr);
    }
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    const std::uintmax_t size = std::filesystem::file_size(file);
    for (const auto& [offset, bytes] : overwrites) {
        stream.seekp(static_cast<std::streamoff>(offset % size)) << bytes;
    }
}

}  // namespace hearthmark::fuzz
