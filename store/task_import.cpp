// SPDX-License-Identifier: MIT
#include "store/task_import.h"

#include <utility>

namespace hearthmark::store {

TaskImport::TaskImport(std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService,
                       std::shared_ptr<const StoreBackups> backups)
    : dataOperationsService_(std::move(dataOperationsService)), backups_(std::move(backups)) {}

std::optional<StoreNotice> TaskImport::import(const std::vector<TaskRecord>& tasks) const {
    if (dataOperationsService_->importable(tasks).isEmpty()) {
        return std::nullopt;
    }
    std::optional<StoreNotice> failure = backups_->keepBeforeImport();
    if (!failure) {
        dataOperationsService_->importTasks(tasks);
    }
    return failure;
}

}  // namespace hearthmark::store
