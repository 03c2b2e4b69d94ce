// SPDX-License-Identifier: MIT
#include "store/undo_history.h"

#include <algorithm>
#include <variant>

namespace hearthmark::store {

namespace {

using Steps = std::vector<UndoHistory::Step>;

bool holds(const Steps& steps, const UndoHistory::Step& step) {
    return std::ranges::find(steps, step) != steps.end();
}

void keep(const UndoHistory::Step& step, Steps& steps) {
    if (steps.size() == UndoHistory::kMostSteps) {
        steps.erase(steps.begin());
    }
    steps.push_back(step);
}

bool bringsBackMore(const Change& change) {
    if (const auto* many = std::get_if<AddMany>(&change.inverse)) {
        return many->hasGrown;
    }
    const auto* added = std::get_if<AddTask>(&change.inverse);
    return added != nullptr && !(added->task.intervals.empty() && added->task.notes.empty());
}

}  // namespace

UndoHistory::UndoHistory(std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService)
    : dataOperationsService_(std::move(dataOperationsService)),
      cancellable_(
          dataOperationsService_->latestChange().subscribeDidChange([this] { remember(); })) {}

bool UndoHistory::contains(const Step& step) const {
    return holds(undos_, step) || holds(takenAway_, step);
}

void UndoHistory::undo() {
    if (!undos_.empty()) {
        undo(undos_.back());
    }
}

void UndoHistory::undo(const Step& step) {
    if (holds(undos_, step)) {
        apply(step, redos_);
    } else if (holds(takenAway_, step)) {
        apply(step, undos_);
    }
}

void UndoHistory::redo() {
    if (!redos_.empty()) {
        apply(redos_.back(), undos_);
    }
}

void UndoHistory::remember() {
    keep(dataOperationsService_->latestChange().value(), undos_);
    redos_.clear();
    show();
}

void UndoHistory::apply(const Step& step, std::vector<Step>& opposite) {
    // Out of the lists first: whoever is told looks there.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it may be one of those there
    const Step applied = step;
    for (std::vector<Step>* steps : {&undos_, &redos_, &takenAway_}) {
        std::erase(*steps, applied);
    }
    const Step inverse = dataOperationsService_->undo(*applied);
    if (inverse) {
        keep(inverse, opposite);
    }
    const bool hasTaken = inverse && bringsBackMore(*inverse);
    if (hasTaken) {
        keep(inverse, takenAway_);
    }
    show();
    if (hasTaken) {
        latestTakenAway_.setValue(inverse);
    }
}

void UndoHistory::show() {
    state_.setValue({.undo = undos_.empty() ? nullptr : undos_.back(),
                     .redo = redos_.empty() ? nullptr : redos_.back()});
}

}  // namespace hearthmark::store
