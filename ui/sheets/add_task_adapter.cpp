// SPDX-License-Identifier: MIT
#include "ui/sheets/add_task_adapter.h"

#include <utility>

#include "base/text.h"
#include "ui/state/state_adapter.h"
#include "ui/text/typed_text.h"

namespace hearthmark::ui {

AddTaskAdapter::AddTaskAdapter(std::shared_ptr<presentation::AddTaskViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)) {}

void AddTaskAdapter::type(const QQuickTextDocument* name) {
    if (replace(canSave_, !base::trimmed(typedText(*name)).empty())) {
        emit canSaveChanged();
    }
}

void AddTaskAdapter::addTask(const QQuickTextDocument* name) {
    viewModel_->addTask(typedText(*name));
}

}  // namespace hearthmark::ui
