// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "livedata/subscription.h"
#include "services/ports/status_bar.h"
#include "services/quick_focus.h"
#include "store/live_data.h"

namespace hearthmark::services {

// What the status item's menu offers to do at once: to finish what runs, else to go on with what
// was begun last, or to start on one of the tasks that were used last. Main thread.
class StatusMenuService final {
 public:
    StatusMenuService(std::shared_ptr<QuickFocus> quickFocus,
                      const store::LiveDataProvidingFactoryProtocol& liveDataFactory);

    // Looks at the newest interval of each task at every call.
    std::vector<StatusMenuEntry> entries() const;

    // Calls when a task or an interval has changed, and once at first. Called once.
    void startObserving(const std::function<void()>& onChange);

 private:
    StatusMenuEntry startEntry(const store::Task& task, base::Seconds length) const;

    std::shared_ptr<QuickFocus> quickFocus_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    std::unique_ptr<store::LiveDataProvider<store::Interval>> intervalsProvider_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::services
