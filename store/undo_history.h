// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "livedata/published.h"
#include "livedata/subscription.h"
#include "store/data_operations_service_protocol.h"

namespace hearthmark::store {

// Remembers what was done to the store, and takes it back and does it again, step by step. Lives as
// long as the program, of which it outlives no run. Main thread.
class UndoHistory {
 public:
    // Of what is older nothing is left. It bounds what the texts of deleted notes may take.
    static constexpr std::size_t kMostSteps = 100;

    using Step = std::shared_ptr<const Change>;

    // What comes next; null where nothing does.
    struct State {
        Step undo;
        Step redo;
    };

    explicit UndoHistory(std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService);

    livedata::Published<State>& state() { return state_; }

    // The latest task that an undo or a redo took away together with intervals or notes: a focus is
    // started without a step of its own, so a task may have some when its addition is undone.
    livedata::Published<Step>& latestTakenAway() { return latestTakenAway_; }

    // Whether it can still be undone.
    bool contains(const Step& step) const;

    // Does nothing where nothing comes next.
    void undo();
    void redo();
    // That step, out of its turn: one that nothing depends on, as a deletion, or what was taken
    // away.
    void undo(const Step& step);

 private:
    void remember();
    // What takes it back in turn goes there.
    void apply(const Step& step, std::vector<Step>& opposite);
    void show();

    std::shared_ptr<DataOperationsServiceProtocol> dataOperationsService_;
    // The latest last.
    std::vector<Step> undos_;
    std::vector<Step> redos_;
    // These stand in one of the others, too, until a new change leaves nothing to redo.
    std::vector<Step> takenAway_;
    livedata::Published<State> state_;
    livedata::Published<Step> latestTakenAway_;
    livedata::Subscription cancellable_;
};

}  // namespace hearthmark::store
