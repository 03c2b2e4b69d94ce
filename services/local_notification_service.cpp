// SPDX-License-Identifier: MIT
#include "services/local_notification_service.h"

#include <string>
#include <utility>
#include <vector>

#include "base/weakly.h"
#include "services/focus.h"
#include "store/interval.h"

namespace hearthmark::services {

namespace {

constexpr base::Seconds kDelay{1};

}  // namespace

LocalNotificationService::LocalNotificationService(
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<QuickFocus> quickFocus, CurrentNotificationCenter currentNotificationCenter,
    base::FatalErrorHandler fatal)
    : liveDataFactory_(std::move(liveDataFactory)),
      quickFocus_(std::move(quickFocus)),
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
    std::vector<const store::Interval*> justFinished;
    for (const store::Interval& interval : intervals) {
        if (!interval.id()) {
            continue;
        }
        if (interval.isRunning()) {
            oldRunningIntervalsIds_->insert(*interval.id());
        } else if (oldIds.contains(*interval.id()) && interval.isFinished() &&
                   interval.task() != nullptr) {
            justFinished.push_back(&interval);
        }
    }
    for (const store::Interval* interval : justFinished) {
        notify(*interval->task(), interval->maxDuration());
    }
}

void LocalNotificationService::notify(const store::Task& task, base::Seconds maxDuration) {
    std::vector<NotificationButton> buttons;
    if (task.id()) {
        buttons.push_back(startButton("more", "5 more minutes", *task.id(), kMoreFocus));
        if (maxDuration > base::Seconds(0)) {
            buttons.push_back(startButton("again", "Again", *task.id(), maxDuration));
        }
    }
    const auto center = currentNotificationCenter_();
    center->requestAuthorization(AuthorizationOptions::alert | AuthorizationOptions::sound,
                                 [center, name = task.name().value_or("-"), taskId = task.id(),
                                  buttons = std::move(buttons)](bool isGranted) {
                                     if (!isGranted) {
                                         return;  // told to nobody
                                     }
                                     center->add({.identifier = base::Uuid::random().text(),
                                                  .content = {.title = name,
                                                              .body = "Interval finished",
                                                              .sound = NotificationSound::standard,
                                                              .taskId = taskId,
                                                              .buttons = buttons},
                                                  .delay = kDelay});
                                 });
}

NotificationButton LocalNotificationService::startButton(const std::string& key,
                                                         const std::string& text,
                                                         const base::Uuid& taskId,
                                                         base::Seconds length) const {
    return {.key = key,
            .text = text,
            .onTap = livedata::makeAction(base::weakly(
                std::weak_ptr(quickFocus_),
                [taskId, length](QuickFocus& quickFocus) { quickFocus.start(taskId, length); }))};
}

}  // namespace hearthmark::services
