// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"
#include "objectstore/persistent_container.h"
#include "objectstore/sqlite_schema.h"
#include "store/hearthmark_model.h"

#include <sqlite3.h>

#include <optional>
#include <string>

namespace hearthmark::benchmarks {

namespace {

void load(benchmark::State& state) {
    const auto directory = sampleStore(state.range(0));
    std::optional<objectstore::PersistentContainer> container;
    for (auto _ : state) {
        state.PauseTiming();
        container.emplace("Hearthmark", store::hearthmarkModel(), directory);
        state.ResumeTiming();
        container->loadPersistentStores();
    }
}

void readColumn(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
            break;
        case SQLITE_FLOAT:
            benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
            break;
        case SQLITE_TEXT:
            benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
            benchmark::DoNotOptimize(sqlite3_column_bytes(statement, column));
            break;
        default:
            break;
    }
}

// The same rows and columns, kept nowhere: what loading cannot do without.
void readBare(benchmark::State& state) {
    const std::string file = sampleStore(state.range(0)) / "Hearthmark.sqlite";
    for (auto _ : state) {
        sqlite3* database = nullptr;
        sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
        for (const objectstore::EntityDescription* entity : store::hearthmarkModel().entities) {
            sqlite3_stmt* statement = nullptr;
            sqlite3_prepare_v2(database, objectstore::selection(*entity).c_str(), -1, &statement,
                               nullptr);
            while (sqlite3_step(statement) == SQLITE_ROW) {
                for (int column = 0; column < sqlite3_column_count(statement); ++column) {
                    readColumn(statement, column);
                }
            }
            sqlite3_finalize(statement);
        }
        sqlite3_close(database);
    }
}

BENCHMARK(load)->Apply(atEachSize);
BENCHMARK(readBare)->Name("bare SQLite read")->Apply(atEachSize);

}  // namespace

}  // namespace hearthmark::benchmarks
