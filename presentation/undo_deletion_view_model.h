// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "base/date.h"
#include "livedata/block.h"
#include "livedata/published.h"
#include "livedata/subscription.h"
#include "services/owned_timer.h"
#include "services/ports/time_keeping.h"
#include "store/data_operations_service_protocol.h"
#include "store/undo_history.h"

namespace hearthmark::presentation {

// What the undo bar shows.
struct UndoDeletionViewState {
    std::string text;
    livedata::Action onUndo;
};

// Offers to undo the latest deletion for ten seconds, and after it the one before, for what is left
// of its own; so too where an undo took away a task with what had come to it. One that was undone
// otherwise is not offered any more. Main thread.
class UndoDeletionViewModel final : public std::enable_shared_from_this<UndoDeletionViewModel> {
 public:
    // To be held by a shared pointer: its closures hold it weakly.
    UndoDeletionViewModel(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<store::UndoHistory> undoHistory,
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
        std::shared_ptr<const base::Clock> clock);

    // Absent while there is nothing to undo.
    livedata::Published<std::optional<UndoDeletionViewState>>& viewState() { return viewState_; }

    // Called once.
    void startObserving();

 private:
    struct Offer {
        store::UndoHistory::Step deletion;
        base::Date until;
    };

    void offer(store::UndoHistory::Step change);
    void undo();
    void dropOldOffers();
    template <class Condition>
    void dropOffers(const Condition& isOver);
    void show();

    livedata::Published<std::optional<UndoDeletionViewState>> viewState_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<store::UndoHistory> undoHistory_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    // Oldest first.
    std::vector<Offer> offers_;
    // Present only while something is offered.
    services::OwnedTimer timer_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::presentation
