// SPDX-License-Identifier: MIT
#include "services/quick_focus.h"

#include <utility>

#include "services/focus.h"

namespace hearthmark::services {

QuickFocus::QuickFocus(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                       const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
                       std::shared_ptr<const base::Clock> clock,
                       CurrentNotificationCenter currentNotificationCenter)
    : dataOperationsService_(std::move(dataOperationsService)),
      tasksProvider_(
          liveDataFactory.makeProvider<store::Task>({.key = "creationDate", .ascending = true})),
      clock_(std::move(clock)),
      currentNotificationCenter_(std::move(currentNotificationCenter)),
      newestFocus_(dataOperationsService_, liveDataFactory) {
    tasksProvider_->startObserving();
}

void QuickFocus::start(const base::Uuid& taskId, base::Seconds maxDuration) {
    const store::Tasks tasks = tasksProvider_->currentItems()->value();
    if (store::taskWithId(tasks, taskId) == nullptr) {
        tell("The task is gone.");
    } else if (!canStartFocus(tasks)) {
        tell("A focus is running already.");
    } else {
        startFocus(*dataOperationsService_, *clock_, taskId, maxDuration);
    }
}

void QuickFocus::tell(const std::string& reason) const {
    currentNotificationCenter_()->add(
        {.identifier = base::Uuid::random().text(),
         .content = {.title = "No focus was started", .body = reason, .taskId = {}}});
}

}  // namespace hearthmark::services
