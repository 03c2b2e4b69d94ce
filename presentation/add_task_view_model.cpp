// SPDX-License-Identifier: MIT
#include "presentation/add_task_view_model.h"

#include <utility>

#include "base/text.h"

namespace hearthmark::presentation {

AddTaskViewModel::AddTaskViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService)
    : dataOperationsService_(std::move(dataOperationsService)) {}

void AddTaskViewModel::addTask(const std::string& name) {
    dataOperationsService_->createTask(std::string(base::trimmed(name)));
}

}  // namespace hearthmark::presentation
