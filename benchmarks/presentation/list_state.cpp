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

BENCHMARK(rebuildList)->Name("rebuild of the list state")->Apply(atEachSize);

}  // namespace

}  // namespace hearthmark::benchmarks
