// SPDX-License-Identifier: MIT
#include "ui/window/undo_adapter.h"

#include <utility>

#include "ui/state/run_action.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

UndoAdapter::UndoAdapter(std::shared_ptr<presentation::UndoDeletionViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    viewModel_->startObserving();
}

QString UndoAdapter::text() const {
    const auto& state = viewModel_->viewState().value();
    return state ? toOneLine(state->text) : QString();
}

void UndoAdapter::undo() {
    if (const auto& state = viewModel_->viewState().value()) {
        run(state->onUndo);
    }
}

}  // namespace hearthmark::ui
