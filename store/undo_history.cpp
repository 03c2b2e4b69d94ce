// SPDX-License-Identifier: MIT
#include "store/undo_history.h"

#include <algorithm>
#include <utility>

namespace hearthmark::store {

UndoHistory::UndoHistory(std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService)
    : dataOperationsService_(std::move(dataOperationsService)),
      cancellable_(
          dataOperationsService_->latestChange().subscribeDidChange([this] { remember(); })) {}

bool UndoHistory::contains(const Step& step) const {
    return std::ranges::find(undos_, step) != undos_.end();
}

void UndoHistory::undo() {
    if (!undos_.empty()) {
        undo(undos_.back());
    }
}

void UndoHistory::undo(const Step& step) {
    const auto found = std::ranges::find(undos_, step);
    if (found != undos_.end()) {
        // Out of the list first: whoever is told looks there.
        const Step undone = std::move(*found);
        undos_.erase(found);
        if (Step redo = dataOperationsService_->undo(*undone)) {
            redos_.push_back(std::move(redo));
        }
        show();
    }
}

void UndoHistory::redo() {
    if (!redos_.empty()) {
        const Step step = std::move(redos_.back());
        redos_.pop_back();
        if (Step undo = dataOperationsService_->undo(*step)) {
            undos_.push_back(std::move(undo));
        }
        show();
    }
}

void UndoHistory::remember() {
    if (undos_.size() == kMostSteps) {
        undos_.erase(undos_.begin());
    }
    undos_.push_back(dataOperationsService_->latestChange().value());
    redos_.clear();
    show();
}

void UndoHistory::show() {
    state_.setValue({.undo = undos_.empty() ? nullptr : undos_.back(),
                     .redo = redos_.empty() ? nullptr : redos_.back()});
}

}  // namespace hearthmark::store
