// SPDX-License-Identifier: MIT
#include "presentation/undo_deletion_view_model.h"

#include <utility>
#include <variant>

#include "base/weakly.h"
#include "presentation/texts.h"

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kTick{1};

std::string textOf(const store::Deletion& deletion) {
    if (const auto* task = std::get_if<store::DeletedTask>(&deletion)) {
        return "Task deleted: " + orDash(task->name);
    }
    return std::holds_alternative<store::TakenInterval>(deletion) ? "Interval deleted"
                                                                  : "Note deleted";
}

}  // namespace

UndoDeletionViewModel::UndoDeletionViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock)
    : dataOperationsService_(std::move(dataOperationsService)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)) {}

void UndoDeletionViewModel::startObserving() {
    cancellable_ = dataOperationsService_->latestDeletion().subscribeDidChange(base::weakly(
        weak_from_this(),
        [](auto& self) { self.offer(self.dataOperationsService_->latestDeletion().value()); }));
}

void UndoDeletionViewModel::offer(std::shared_ptr<const store::Deletion> deletion) {
    offers_.push_back({.deletion = std::move(deletion), .until = clock_->now() + kUndoTime});
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
    const Offer latest = std::move(offers_.back());
    offers_.pop_back();
    dataOperationsService_->undo(*latest.deletion);
    show();
}

void UndoDeletionViewModel::dropOldOffers() {
    const base::Date now = clock_->now();
    // A clock that was set back must not keep one for ever.
    const auto dropped = std::erase_if(offers_, [now](const Offer& offer) {
        return offer.until <= now || offer.until > now + kUndoTime;
    });
    if (dropped > 0) {
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
