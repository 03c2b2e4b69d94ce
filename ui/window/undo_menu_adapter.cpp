// SPDX-License-Identifier: MIT
#include "ui/window/undo_menu_adapter.h"

#include <utility>

#include "ui/state/run_action.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using Item = std::optional<presentation::UndoMenuViewState::Item>;

QString textOf(const Item& item) {
    return item ? toOneLine(item->text) : QString();
}

void tap(const Item& item) {
    if (item) {
        run(item->onTap);
    }
}

}  // namespace

UndoMenuAdapter::UndoMenuAdapter(std::shared_ptr<presentation::UndoMenuViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    viewModel_->startObserving();
    follow(viewModel_->viewState());
}

QString UndoMenuAdapter::undoText() const {
    return textOf(viewModel_->viewState().value().undo);
}

QString UndoMenuAdapter::redoText() const {
    return textOf(viewModel_->viewState().value().redo);
}

void UndoMenuAdapter::undo() {
    tap(viewModel_->viewState().value().undo);
}

void UndoMenuAdapter::redo() {
    tap(viewModel_->viewState().value().redo);
}

}  // namespace hearthmark::ui
