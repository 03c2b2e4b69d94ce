// SPDX-License-Identifier: MIT
#include "ui/sheets/share_container_adapter.h"

#include <utility>

namespace hearthmark::ui {

ShareContainerAdapter::ShareContainerAdapter(
    std::shared_ptr<exporting::ShareContainerViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    show();
}

void ShareContainerAdapter::copy(Tab tab) {
    viewModel_->copy(static_cast<exporting::ShareContainerTab>(tab));
}

void ShareContainerAdapter::show() {
    if (const auto& state = viewModel_->viewState().value()) {
        jsonLines_.setText(state->jsonText);
        csvLines_.setText(state->csvText);
        emit changed();
    }
}

}  // namespace hearthmark::ui
