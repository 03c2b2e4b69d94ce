// SPDX-License-Identifier: MIT
#include "services/local_notification_service.h"

#include <string>
#include <utility>
#include <vector>

#include "base/weakly.h"
#include "store/interval.h"

namespace hearthmark::services {

namespace {

constexpr base::Seconds kDelay{1};

}  // namespace

LocalNotificationService::LocalNotificationService(
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    CurrentNotificationCenter currentNotificationCenter, base::FatalErrorHandler fatal)
    : liveDataFactory_(std::move(liveDataFactory)),
      currentNotificationCenter_(std::move(currentNotificationCenter)),
      fatal_(std::move(fatal)) {}

void LocalNotificationService::startObserving() {
    if (intervalProvider_) {
        fatal_("Hearthmark/LocalNotificationService: Fatal error: observing was started twice");
    }
    intervalProvider_ =
        liveDataFactory_->makeProvider<store::Interval>({.key = "creationDate", .ascending = true});
    cancellables_.push_back(intervalProvider_->currentItems()->subscribe(
        base::weakly(weak_from_this(), &LocalNotificationService::handle)));
    intervalProvider_->startObserving();
}

void LocalNotificationService::handle(const store::Intervals& intervals) {
    // Of the first set nothing is just finished.
    const std::unordered_set<base::Uuid> oldIds =
        std::exchange(oldRunningIntervalsIds_, std::unordered_set<base::Uuid>())
            .value_or(std::unordered_set<base::Uuid>());
    std::vector<const store::Task*> justFinished;
    for (const store::Interval& interval : intervals) {
        if (!interval.id()) {
            continue;
        }
        if (interval.isRunning()) {
            oldRunningIntervalsIds_->insert(*interval.id());
        } else if (oldIds.contains(*interval.id()) && interval.isFinished() &&
                   interval.task() != nullptr) {
            justFinished.push_back(interval.task());
        }
    }
    for (const store::Task* task : justFinished) {
        notify(*task);
    }
}

void LocalNotificationService::notify(const store::Task& task) {
    const auto center = currentNotificationCenter_();
    center->requestAuthorization(
        AuthorizationOptions::alert | AuthorizationOptions::sound,
        [center, name = task.name().value_or("-"), taskId = task.id()](bool isGranted) {
            if (!isGranted) {
                return;  // told to nobody
            }
            center->add({.identifier = base::Uuid::random().text(),
                         .content = {.title = name,
                                     .body = "Interval finished",
                                     .sound = NotificationSound::standard,
                                     .taskId = taskId},
                         .delay = kDelay});
        });
}

}  // namespace hearthmark::services
