// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "base/clock.h"
#include "base/date.h"
#include "base/uuid.h"
#include "services/newest_focus.h"
#include "services/ports/user_notification_center.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::services {

// Starts and finishes a focus from outside the window, which stays as it is: whatever keeps it from
// being started since it was offered is told by a notification. Main thread.
class QuickFocus final {
 public:
    QuickFocus(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
               const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
               std::shared_ptr<const base::Clock> clock,
               CurrentNotificationCenter currentNotificationCenter);

    void start(const base::Uuid& taskId, base::Seconds maxDuration);
    void finishNewest() { newestFocus_.finish(); }

 private:
    void tell(const std::string& reason) const;

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    std::shared_ptr<const base::Clock> clock_;
    CurrentNotificationCenter currentNotificationCenter_;
    NewestFocus newestFocus_;
};

}  // namespace hearthmark::services
