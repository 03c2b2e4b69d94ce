// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <optional>

#include "services/ports/time_keeping.h"
#include "services/ports/user_notification_center.h"
#include "store/store_backups.h"

namespace hearthmark::services {

// Backs the store up when the day changes, for a program that is not restarted each day, and shows
// the person what has to be known of the store and its backups. Main thread; the copy is made on
// another one, since it takes 0.1 s for the store of ten years, and longer on a slow disk.
class DailyBackupService final : public std::enable_shared_from_this<DailyBackupService> {
 public:
    // Its end waits for a backup that is being made.
    DailyBackupService(std::shared_ptr<const store::StoreBackups> backups,
                       std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
                       std::shared_ptr<UserNotificationCenter> notificationCenter);

    // Called once, on the day of which the start has made the backup.
    void start();

    // Shows it as a notification. What fails later that day is not shown again.
    void tell(const store::StoreNotice& notice);

 private:
    std::shared_ptr<TimeKeeping> makeTimer(base::Seconds interval,
                                           void (DailyBackupService::*action)());
    void look();
    void begin(const base::LocalTime& moment);
    void takeResult();

    std::shared_ptr<const store::StoreBackups> backups_;
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<UserNotificationCenter> notificationCenter_;
    std::shared_ptr<TimeKeeping> timeKeeper_;
    // While one is being made.
    std::shared_ptr<TimeKeeping> resultKeeper_;
    // The last days of which a backup was tried, and on which something was shown.
    std::optional<std::chrono::year_month_day> tried_;
    std::optional<std::chrono::year_month_day> told_;
    // In looks; none while nothing has failed.
    int untilRetry_ = 0;
    // Not valid while none is being made.
    std::future<std::optional<store::StoreNotice>> underWay_;
};

}  // namespace hearthmark::services
