// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/fatal_error.h"
#include "base/uuid.h"
#include "livedata/subscription.h"
#include "services/ports/user_notification_center.h"
#include "services/quick_focus.h"
#include "store/live_data.h"

namespace hearthmark::services {

// Notifies of each interval that went from running to finished between two sets of intervals, by
// the name of its task, and offers to go on. Writes nothing by itself. Main thread.
class LocalNotificationService final
    : public std::enable_shared_from_this<LocalNotificationService> {
 public:
    LocalNotificationService(
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
        std::shared_ptr<QuickFocus> quickFocus, CurrentNotificationCenter currentNotificationCenter,
        base::FatalErrorHandler fatal);

    // Called once, at launch; a second call ends the program.
    void startObserving();

 private:
    void handle(const store::Intervals& intervals);
    // With the length that the interval aimed at.
    void notify(const store::Task& task, base::Seconds maxDuration);
    NotificationButton startButton(const std::string& key, const std::string& text,
                                   const base::Uuid& taskId, base::Seconds length) const;

    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<QuickFocus> quickFocus_;
    CurrentNotificationCenter currentNotificationCenter_;
    base::FatalErrorHandler fatal_;
    std::unique_ptr<store::LiveDataProvider<store::Interval>> intervalProvider_;
    // Absent until the first set has been seen.
    std::optional<std::unordered_set<base::Uuid>> oldRunningIntervalsIds_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::services
