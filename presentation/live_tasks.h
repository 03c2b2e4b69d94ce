// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "livedata/subscription.h"
#include "services/owned_timer.h"
#include "services/ports/time_keeping.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// The tasks of the store as a view model follows them: tells of every change of a task, an interval
// or an interval's state, and once a second while some interval runs, when nothing but the time has
// changed. All of it ends when this is destroyed. To be held by a shared pointer: its closures hold
// it weakly.
class LiveTasks final : public std::enable_shared_from_this<LiveTasks> {
 public:
    using OnChange = std::function<void(const store::Tasks&)>;

    LiveTasks(std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
              OnChange onChange, std::function<void()> onTick);

    // Called once.
    void startObserving(const store::LiveDataProvidingFactoryProtocol& liveDataFactory);

    // Before observation has begun, no tasks.
    store::Tasks tasks() const;

 private:
    template <class Entity>
    void observe(const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
                 const std::string& sortKey,
                 std::unique_ptr<store::LiveDataProvider<Entity>>& provider,
                 void (*onItems)(LiveTasks& self, const objectstore::ObjectSet<Entity>& items));
    void followStates(const store::RawIntervalStates& states);

    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    OnChange onChange_;
    std::function<void()> onTick_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    std::unique_ptr<store::LiveDataProvider<store::Interval>> intervalProvider_;
    std::unique_ptr<store::LiveDataProvider<store::RawIntervalState>> intervalStateProvider_;
    // Present only while some interval runs.
    services::OwnedTimer timer_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::presentation
