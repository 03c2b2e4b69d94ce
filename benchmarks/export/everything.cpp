// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"
#include "export/everything_document.h"
#include "export/everything_reader.h"
#include "export/file_export.h"
#include "export/interval_calendar.h"
#include "export/interval_table.h"
#include "store/note.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::benchmarks {

namespace {

constexpr base::Date kEver(base::Seconds(-1e12));

store::Tasks tasksOf(const OpenedStore& opened) {
    return opened.container->viewContext().objects<store::Task>();
}

template <class Make>
void write(benchmark::State& state, const Make& make) {
    const std::filesystem::path directory = sampleStore(state.range(0));
    const OpenedStore opened(directory);
    const std::filesystem::path file = directory / "written";
    for (auto _ : state) {
        auto text = make(opened);
        exporting::writeFile(file, text, {});
    }
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
}

std::vector<exporting::IntervalRow> allRows(const OpenedStore& opened) {
    const base::Date now = opened.clock->now();
    return exporting::intervalRows(tasksOf(opened), kEver, now, now);
}

void writeEverything(benchmark::State& state) {
    write(state,
          [](const OpenedStore& opened) { return exporting::EverythingDocument(tasksOf(opened)); });
}

void writeTable(benchmark::State& state) {
    write(state, [](const OpenedStore& opened) {
        return exporting::IntervalTable(allRows(opened), std::make_shared<base::LocalCalendar>());
    });
}

void writeCalendar(benchmark::State& state) {
    write(state,
          [](const OpenedStore& opened) { return exporting::IntervalCalendar(allRows(opened)); });
}

// What the JSON module of Python's standard library takes for the same document.
void dumpEverythingByPython(benchmark::State& state) {
    const std::filesystem::path file = sampleStore(state.range(0)) / "everything.json";
    const OpenedStore opened(file.parent_path());
    exporting::EverythingDocument document(tasksOf(opened));
    exporting::writeFile(file, document, {});
    dumpByPython(state, file, 0);
}

enum class Timed { read, add, takeBack };

// Into an empty store, and out of it.
template <Timed Part>
void import(benchmark::State& state) {
    const std::filesystem::path directory = sampleStore(state.range(0));
    const std::filesystem::path file = directory / "import.json";
    {
        const OpenedStore opened(directory);
        exporting::EverythingDocument document(tasksOf(opened));
        exporting::writeFile(file, document, {});
    }
    for (auto _ : state) {
        state.PauseTiming();
        const std::filesystem::path empty = directory / "empty";
        std::filesystem::remove_all(empty);
        const OpenedStore opened(empty);
        const auto run = [&state](Timed part, const auto& work) {
            if (part == Part) {
                state.ResumeTiming();
            }
            work();
            if (part == Part) {
                state.PauseTiming();
            }
        };
        exporting::EverythingRead read;
        run(Timed::read, [&] { read = exporting::readEverything(file, {}); });
        run(Timed::add, [&] { opened.service->importTasks(read.tasks); });
        run(Timed::takeBack,
            [&] { opened.service->undo(*opened.service->latestChange().value()); });
        state.ResumeTiming();
    }
}

void medians(benchmark::internal::Benchmark* benchmark) {
    benchmark->Apply(atEachSize)->Repetitions(5)->ReportAggregatesOnly();
}

BENCHMARK(writeEverything)->Name("everything to a file")->Apply(medians);
BENCHMARK(writeTable)->Name("CSV of all intervals to a file")->Apply(medians);
BENCHMARK(writeCalendar)->Name("calendar of all intervals to a file")->Apply(medians);
BENCHMARK(dumpEverythingByPython)
    ->Name("json.dumps of everything")
    ->Apply(atEachSize)
    ->UseManualTime()
    ->Iterations(1);
BENCHMARK(import <Timed::read>)->Name("read everything")->Apply(atEachSize)->Iterations(3);
BENCHMARK(import <Timed::add>)
    ->Name("import everything and save")
    ->Apply(atEachSize)
    ->Iterations(3);
BENCHMARK(import <Timed::takeBack>)->Name("undo that and save")->Apply(atEachSize)->Iterations(3);

}  // namespace

}  // namespace hearthmark::benchmarks
