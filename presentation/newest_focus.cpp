// SPDX-License-Identifier: MIT
#include "presentation/newest_focus.h"

#include <utility>

#include "store/interval.h"
#include "store/newest_first.h"

namespace hearthmark::presentation {

NewestFocus::NewestFocus(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    const store::LiveDataProvidingFactoryProtocol& liveDataFactory)
    : dataOperationsService_(std::move(dataOperationsService)),
      tasksProvider_(
          liveDataFactory.makeProvider<store::Task>({.key = "creationDate", .ascending = true})) {
    tasksProvider_->startObserving();
}

void NewestFocus::finish() {
    const store::Tasks tasks = tasksProvider_->currentItems()->value();
    const store::Interval* newest = nullptr;
    for (const store::Task& task : tasks) {
        for (const store::Interval* interval : task.intervalSummary()->running) {
            if (task.id() && interval->id() &&
                (newest == nullptr || store::NewestFirst()(interval, newest))) {
                newest = interval;
            }
        }
    }
    if (newest != nullptr) {
        // Copies, since the interval changes.
        const base::Uuid intervalId = *newest->id();
        const base::Uuid taskId = *newest->task()->id();
        dataOperationsService_->finishInterval(intervalId, taskId);
    }
}

}  // namespace hearthmark::presentation
