// SPDX-License-Identifier: MIT
#include "services/daily_backup_service.h"

#include <exception>
#include <system_error>
#include <utility>

#include "base/weakly.h"

namespace hearthmark::services {

namespace {

using namespace std::chrono_literals;

constexpr base::Seconds kLook{60};
// Whether it has been made.
constexpr base::Seconds kAsk{1};
// An hour: a disk may have room again.
constexpr int kLooksUntilRetry = 60;

}  // namespace

DailyBackupService::DailyBackupService(
    std::shared_ptr<const store::StoreBackups> backups,
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<UserNotificationCenter> notificationCenter)
    : backups_(std::move(backups)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      notificationCenter_(std::move(notificationCenter)) {}

void DailyBackupService::start() {
    if (const auto now = backups_->now()) {
        tried_ = now->day;
    }
    timeKeeper_ = makeTimer(kLook, &DailyBackupService::look);
}

std::shared_ptr<TimeKeeping> DailyBackupService::makeTimer(base::Seconds interval,
                                                           void (DailyBackupService::*action)()) {
    return timeKeepingProvider_->makeTimer(interval, Repeats::yes,
                                           base::weakly(weak_from_this(), action));
}

void DailyBackupService::tell(const store::StoreNotice& notice) {
    if (notice.isFailure) {
        untilRetry_ = kLooksUntilRetry;
        if (const auto now = backups_->now()) {
            told_ = now->day;
        }
    }
    notificationCenter_->add({.identifier = notice.title,
                              .content = {.title = notice.title,
                                          .body = notice.body,
                                          .sound = NotificationSound::none,
                                          .taskId = {}}});
}

void DailyBackupService::look() {
    const auto now = backups_->now();
    const bool isRetry = untilRetry_ > 0 && --untilRetry_ == 0;
    if (now && !underWay_.valid() && (now->day != tried_ || isRetry)) {
        tried_ = now->day;
        begin(*now);
    }
}

// Whatever fails says nothing against the store, for want of memory or of a thread, too.
void DailyBackupService::begin(const base::LocalTime& moment) {
    const auto keep = [backups = backups_, moment]() -> std::optional<store::StoreNotice> {
        try {
            return backups->keepDaily(moment);
        } catch (const std::exception& error) {
            return store::StoreNotice{.title = "Hearthmark could not back up its data",
                                      .body = error.what(),
                                      .isFailure = true};
        }
    };
    try {
        underWay_ = std::async(std::launch::async, keep);
        resultKeeper_ = makeTimer(kAsk, &DailyBackupService::takeResult);
    } catch (const std::system_error&) {
        untilRetry_ = kLooksUntilRetry;
    }
}

void DailyBackupService::takeResult() {
    if (underWay_.wait_for(0s) != std::future_status::ready) {
        return;
    }
    resultKeeper_->invalidate();
    const auto failure = underWay_.get();
    const auto now = backups_->now();
    if (failure && now && now->day != told_) {
        tell(*failure);
    } else if (failure) {
        untilRetry_ = kLooksUntilRetry;
    }
}

}  // namespace hearthmark::services
