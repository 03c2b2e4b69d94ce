// SPDX-License-Identifier: MIT
#include "presentation/undo_deletion_view_model.h"

#include <utility>
#include <variant>

#include "base/weakly.h"
#include "presentation/texts.h"

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kTick{1};

// By what would be brought back; empty where nothing would.
std::string textOf(const store::Change& change) {
    if (std::holds_alternative<store::AddTask>(change.inverse)) {
        return "Task deleted: " + orDash(change.taskName);
    }
    if (std::holds_alternative<store::ReturnInterval>(change.inverse)) {
        return "Interval deleted";
    }
    if (std::holds_alternative<store::AddMany>(change.inverse)) {
        return "Imported tasks removed";
    }
    return std::holds_alternative<store::ReturnNote>(change.inverse) ? "Note deleted" : "";
}

}  // namespace

UndoDeletionViewModel::UndoDeletionViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<store::UndoHistory> undoHistory,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock)
    : dataOperationsService_(std::move(dataOperationsService)),
      undoHistory_(std::move(undoHistory)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)) {}

void UndoDeletionViewModel::startObserving() {
    const auto offerEach = [this](livedata::Published<store::UndoHistory::Step>& steps) {
        cancellables_.push_back(steps.subscribeDidChange(
            base::weakly(weak_from_this(), [&steps](auto& self) { self.offer(steps.value()); })));
    };
    offerEach(dataOperationsService_->latestChange());
    offerEach(undoHistory_->latestTakenAway());
    cancellables_.push_back(
        undoHistory_->state().subscribeDidChange(base::weakly(weak_from_this(), [](auto& self) {
            self.dropOffers([&self](const Offer& offer) {
                return !self.undoHistory_->contains(offer.deletion);
            });
        })));
}

void UndoDeletionViewModel::offer(store::UndoHistory::Step change) {
    if (textOf(*change).empty()) {
        return;
    }
    offers_.push_back({.deletion = std::move(change), .until = clock_->now() + store::kUndoTime});
    if (!timer_) {
        timer_ = timeKeepingProvider_->makeTimer(
            kTick, services::Repeats::yes,
            base::weakly(weak_from_this(), &UndoDeletionViewModel::dropOldOffers));
    }
    show();
}

void UndoDeletionViewModel::undo() {
    dropOldOffers();
    if (offers_.empty()) {
        return;
    }
    undoHistory_->undo(offers_.back().deletion);
}

void UndoDeletionViewModel::dropOldOffers() {
    // A clock that was set back must not keep one for ever.
    dropOffers([now = clock_->now()](const Offer& offer) {
        return offer.until <= now || offer.until > now + store::kUndoTime;
    });
}

template <class Condition>
void UndoDeletionViewModel::dropOffers(const Condition& isOver) {
    if (std::erase_if(offers_, isOver) > 0) {
        show();
    }
}

void UndoDeletionViewModel::show() {
    if (offers_.empty()) {
        timer_.stop();
        viewState_.setValue(std::nullopt);
        return;
    }
    viewState_.setValue(UndoDeletionViewState{
        .text = textOf(*offers_.back().deletion),
        .onUndo =
            livedata::makeAction(base::weakly(weak_from_this(), &UndoDeletionViewModel::undo))});
}

}  // namespace hearthmark::presentation
