// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::services {

// Of those that belong to a task; null where none of them runs.
const store::Interval* newestFocus(const store::Intervals& intervals);

// The running interval that was created last, for the key that finishes it. Main thread.
class NewestFocus {
 public:
    NewestFocus(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                const store::LiveDataProvidingFactoryProtocol& liveDataFactory);

    // Where no interval of a task runs, does nothing.
    void finish();

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::unique_ptr<store::LiveDataProvider<store::Interval>> intervalProvider_;
};

}  // namespace hearthmark::services
