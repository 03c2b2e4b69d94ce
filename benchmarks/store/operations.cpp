// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"

namespace hearthmark::benchmarks {

namespace {

// Makes a task, starts and finishes a focus in it and deletes it again, so the store stays as large
// as it was. Only the operation in the template is timed; nobody observes but the service itself.
enum class Operation { createTask, addInterval, finishInterval, deleteTask };

// Each round waits for the disk four times.
constexpr int kRounds = 100;

template <Operation Timed>
void operation(benchmark::State& state) {
    const OpenedStore opened(sampleStore(state.range(0)));
    const auto run = [&state](Operation operation, const auto& work) {
        if (operation == Timed) {
            state.ResumeTiming();
        }
        work();
        if (operation == Timed) {
            state.PauseTiming();
        }
    };
    for (auto _ : state) {
        state.PauseTiming();
        run(Operation::createTask, [&] { opened.service->createTask("Water the plants"); });
        const base::Uuid task = newestTask(opened).id().value();
        const base::Uuid interval = base::Uuid::random();
        const base::Date now = opened.clock->now();
        run(Operation::addInterval, [&] {
            opened.service->addInterval({.creationDate = now,
                                         .duration = base::Seconds(0),
                                         .id = interval,
                                         .maxDuration = base::Seconds(1800),
                                         .state = store::IntervalState::running(now)},
                                        task);
        });
        run(Operation::finishInterval, [&] { opened.service->finishInterval(interval, task); });
        run(Operation::deleteTask, [&] { opened.service->deleteTask(task); });
        state.ResumeTiming();
    }
}

// One second of a running focus: two intervals run and neither is due.
void tick(benchmark::State& state) {
    const OpenedStore opened(sampleStore(state.range(0)));
    for (auto _ : state) {
        opened.service->finishDueIntervals();
    }
}

BENCHMARK(operation<Operation::createTask>)
    ->Name("create a task and save")
    ->Apply(atEachSize)
    ->Iterations(kRounds);
BENCHMARK(operation<Operation::addInterval>)
    ->Name("start a focus and save")
    ->Apply(atEachSize)
    ->Iterations(kRounds);
BENCHMARK(operation<Operation::finishInterval>)
    ->Name("finish a focus and save")
    ->Apply(atEachSize)
    ->Iterations(kRounds);
BENCHMARK(operation<Operation::deleteTask>)
    ->Name("delete a task and save")
    ->Apply(atEachSize)
    ->Iterations(kRounds);
BENCHMARK(tick)->Name("tick that finishes nothing")->Apply(atEachSize);

}  // namespace

}  // namespace hearthmark::benchmarks
