// SPDX-License-Identifier: MIT
#pragma once

#include "base/clock.h"
#include "store/data_operations_service.h"
#include "store/live_data.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace hearthmark::benchmarks {

// The numbers of intervals at which everything is measured.
constexpr std::int64_t kFewest = 1'000;
constexpr std::int64_t kMost = 100'000;
constexpr int kStep = 10;

inline void atEachSize(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(kStep)->Range(kFewest, kMost)->Unit(benchmark::kMicrosecond);
}

// The directory of a store of a believable shape with so many intervals, two of them running. Made
// when first asked for; it goes when the process ends.
std::filesystem::path sampleStore(std::int64_t intervals);

// The same for one task of so many intervals, with a note for every tenth.
std::filesystem::path singleTaskStore(std::int64_t intervals, const std::string& name);

// 40,000 intervals and 10,000 notes in all, unless told otherwise.
struct TenYears {
    std::int64_t tasks = 2'000;
    std::int64_t intervalsOfTask = 20;
    std::int64_t notesOfTask = 5;
};

// Fills a new store in the directory with ten years of use up to now.
void makeTenYearStore(const std::filesystem::path& directory, TenYears ofUse);

// What the program holds of a store, without view models.
struct OpenedStore {
    explicit OpenedStore(const std::filesystem::path& directory);

    std::shared_ptr<const base::Clock> clock = std::make_shared<base::SystemClock>();
    std::shared_ptr<objectstore::PersistentContainer> container;
    std::shared_ptr<const store::LiveDataProvidingFactory> liveDataFactory;
    std::shared_ptr<store::DataOperationsService> service;
};

// Has the JSON module of Python's standard library write the document in the file as often as it
// takes, and sets the time of it.
void dumpByPython(benchmark::State& state, const std::filesystem::path& file, int indentation);

const store::Task& newestTask(const OpenedStore& opened);

}  // namespace hearthmark::benchmarks
