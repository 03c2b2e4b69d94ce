// SPDX-License-Identifier: MIT
#include "services/newest_focus.h"

#include <utility>

#include "store/interval.h"
#include "store/newest_first.h"

namespace hearthmark::services {

const store::Interval* newestFocus(const store::Intervals& intervals) {
    return store::newestRunning(intervals, [](const store::Interval& interval) {
        return interval.id() && interval.task() != nullptr && interval.task()->id();
    });
}

NewestFocus::NewestFocus(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    const store::LiveDataProvidingFactoryProtocol& liveDataFactory)
    : dataOperationsService_(std::move(dataOperationsService)),
      intervalProvider_(liveDataFactory.makeProvider<store::Interval>(
          {.key = "creationDate", .ascending = true})) {
    intervalProvider_->startObserving();
}

void NewestFocus::finish() {
    const store::Interval* newest = newestFocus(intervalProvider_->currentItems()->value());
    if (newest != nullptr) {
        // Copies, since the interval changes.
        const base::Uuid intervalId = *newest->id();
        const base::Uuid taskId = *newest->task()->id();
        dataOperationsService_->finishInterval(intervalId, taskId);
    }
}

}  // namespace hearthmark::services
