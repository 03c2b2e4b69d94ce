// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"
#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"

#include <fstream>

namespace hearthmark::benchmarks {

namespace {

template <class Serializer>
void serialize(benchmark::State& state) {
    const OpenedStore opened(singleTaskStore(state.range(0), "Read"));
    std::size_t size = 0;
    for (auto _ : state) {
        size = Serializer().serialize(newestTask(opened)).size();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
    state.counters["MB"] = static_cast<double>(size) / 1e6;
}

// What the JSON module of Python's standard library takes for the same document.
template <int Indentation>
void dumpByPython(benchmark::State& state) {
    const std::filesystem::path directory = singleTaskStore(state.range(0), "Read");
    const std::string file = directory / "task.json";
    const OpenedStore opened(directory);
    std::ofstream(file) << exporting::JSONShareSerializer().serialize(newestTask(opened));
    benchmarks::dumpByPython(state, file, Indentation);
}

void medians(benchmark::internal::Benchmark* benchmark) {
    benchmark->Apply(atEachSize)->Repetitions(7)->ReportAggregatesOnly();
}

void timedByPython(benchmark::internal::Benchmark* benchmark) {
    benchmark->Apply(atEachSize)->UseManualTime()->Iterations(1);
}

BENCHMARK(serialize<exporting::JSONShareSerializer>)->Name("JSON of a task")->Apply(medians);
BENCHMARK(serialize<exporting::CSVTaskShareSerializer>)->Name("CSV of a task")->Apply(medians);
BENCHMARK(dumpByPython<0>)->Name("json.dumps")->Apply(timedByPython);
BENCHMARK(dumpByPython<2>)->Name("json.dumps, indented")->Apply(timedByPython);

}  // namespace

}  // namespace hearthmark::benchmarks
