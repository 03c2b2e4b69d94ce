// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"
#include "presentation/tasks_list_view_model.h"

#include <functional>
#include <memory>
#include <utility>

namespace hearthmark::benchmarks {

namespace {

class NoTimer final : public services::TimeKeeping {
 public:
    void invalidate() override {}
};

// Hands out its timer's action, to be fired by hand.
class FiredByHand final : public services::TimeKeepingProviderProtocol {
 public:
    std::shared_ptr<services::TimeKeeping> makeTimer(base::Seconds /*interval*/,
                                                     services::Repeats /*repeats*/,
                                                     std::function<void()> action) override {
        fire = std::move(action);
        return std::make_shared<NoTimer>();
    }

    std::function<void()> fire;
};

void rebuildList(benchmark::State& state) {
    const OpenedStore opened(sampleStore(state.range(0)));
    const auto timer = std::make_shared<FiredByHand>();
    const auto model = std::make_shared<presentation::TasksListViewModel>(
        opened.service, opened.liveDataFactory, timer, opened.clock,
        std::make_shared<presentation::SelectedTaskId>(std::nullopt));
    model->startObserving();
    for (auto _ : state) {
        timer->fire();
    }
}

// What no rebuild can do without: the duration and the state of every interval, read in the same
// order. Shows what of the growth is due to the caches of the machine.
void walkBare(benchmark::State& state) {
    const OpenedStore opened(sampleStore(state.range(0)));
    const auto tasks = opened.container->viewContext().objects<store::Task>();
    for (auto _ : state) {
        base::Seconds sum{0};
        for (const store::Task& task : tasks) {
            for (const store::Interval* interval : task.intervals()) {
                sum += interval->rawState()->isRunning() ? base::Seconds(0) : interval->duration();
            }
        }
        benchmark::DoNotOptimize(sum);
    }
}

BENCHMARK(walkBare)->Name("bare walk over the intervals")->Apply(atEachSize);
BENCHMARK(rebuildList)->Name("rebuild of the list state")->Apply(atEachSize);

}  // namespace

}  // namespace hearthmark::benchmarks
