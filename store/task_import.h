// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "store/data_operations_service_protocol.h"
#include "store/store_backups.h"
#include "store/store_notice.h"

namespace hearthmark::store {

// Adds tasks to the store after it was backed up. Main thread.
class TaskImport {
 public:
    TaskImport(std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService,
               std::shared_ptr<const StoreBackups> backups);

    // Where there is nothing to add, it does nothing. Says what failed; then nothing was added.
    std::optional<StoreNotice> import(const std::vector<TaskRecord>& tasks) const;

 private:
    std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const StoreBackups> backups_;
};

}  // namespace hearthmark::store
