// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/clock.h"
#include "base/date.h"
#include "base/uuid.h"
#include "livedata/subscription.h"
#include "services/ports/focus_control.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::services {

// Follows the newest running interval of a task, and does what other programs ask for in the ways
// of the window: one change, one save, and what is a change can be taken back. Main thread.
class FocusService final : public FocusControl, public std::enable_shared_from_this<FocusService> {
 public:
    FocusService(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                 const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
                 std::shared_ptr<const base::Clock> clock);

    void startObserving(Handlers handlers) override;

    FocusAnswer<base::Uuid> start(const std::string& taskId, base::Seconds length) override;
    FocusAnswer<base::Uuid> finish() override;
    FocusAnswer<base::Seconds> extend(base::Seconds by) override;
    FocusAnswer<base::Uuid> addTask(const std::string& name) override;
    FocusAnswer<base::Uuid> addNote(const std::string& taskId, const std::string& text) override;
    FocusAnswer<std::vector<FoundTask>> findTasks(const std::string& words) override;

    const std::optional<RunningFocus>& running() const override { return running_; }

 private:
    void show();
    void tellStartsAndEnds(const store::Intervals& intervals);
    // Null where there is none.
    const store::Interval* newest() const;
    const store::Task* task(const std::string& taskId) const;

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    std::unique_ptr<store::LiveDataProvider<store::Interval>> intervalsProvider_;
    std::shared_ptr<const base::Clock> clock_;
    Handlers handlers_;
    std::optional<RunningFocus> running_;
    // Those that run, and those that ever ran since the launch: what is brought back is not new.
    std::unordered_set<base::Uuid> runningIds_;
    std::unordered_set<base::Uuid> seenIds_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::services
