// SPDX-License-Identifier: MIT
#include "presentation/live_tasks.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/weakly.h"
#include "store/raw_interval_state.h"

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kTick{1};

}  // namespace

LiveTasks::LiveTasks(std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
                     OnChange onChange, std::function<void()> onTick)
    : timeKeepingProvider_(std::move(timeKeepingProvider)),
      onChange_(std::move(onChange)),
      onTick_(std::move(onTick)) {}

void LiveTasks::startObserving(const store::LiveDataProvidingFactoryProtocol& liveDataFactory) {
    observe<store::Task>(liveDataFactory, "creationDate", tasksProvider_,
                         [](LiveTasks& self, const store::Tasks& tasks) { self.onChange_(tasks); });
    observe<store::Interval>(liveDataFactory, "creationDate", intervalProvider_,
                             [](LiveTasks& self, const auto&) { self.onChange_(self.tasks()); });
    observe<store::RawIntervalState>(liveDataFactory, "state", intervalStateProvider_,
                                     [](LiveTasks& self, const store::RawIntervalStates& states) {
                                         self.onChange_(self.tasks());
                                         self.followStates(states);
                                     });
}

store::Tasks LiveTasks::tasks() const {
    return tasksProvider_ ? tasksProvider_->currentItems()->value() : store::Tasks();
}

template <class Entity>
void LiveTasks::observe(const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
                        const std::string& sortKey,
                        std::unique_ptr<store::LiveDataProvider<Entity>>& provider,
                        void (*onItems)(LiveTasks&, const objectstore::ObjectSet<Entity>&)) {
    provider = liveDataFactory.makeProvider<Entity>({.key = sortKey, .ascending = true});
    cancellables_.push_back(
        provider->currentItems()->subscribe(base::weakly(weak_from_this(), onItems)));
    provider->startObserving();
}

void LiveTasks::followStates(const store::RawIntervalStates& states) {
    const bool runs =
        std::any_of(states.begin(), states.end(),
                    [](const store::RawIntervalState& state) { return state.isRunning(); });
    if (!runs) {
        timer_.stop();
    } else if (!timer_) {
        timer_ = timeKeepingProvider_->makeTimer(
            kTick, services::Repeats::yes,
            base::weakly(weak_from_this(), [](auto& self) { self.onTick_(); }));
    }
}

}  // namespace hearthmark::presentation
