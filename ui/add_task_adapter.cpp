// SPDX-License-Identifier: MIT
#include "ui/add_task_adapter.h"

#include <utility>

#include "ui/text_conversion.h"

namespace hearthmark::ui {

AddTaskAdapter::AddTaskAdapter(std::shared_ptr<presentation::AddTaskViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)) {}

void AddTaskAdapter::addTask(const QString& name) {
    viewModel_->addTask(toUtf8(name));
}

}  // namespace hearthmark::ui
