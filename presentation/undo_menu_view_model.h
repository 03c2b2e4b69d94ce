// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "livedata/block.h"
#include "livedata/published.h"
#include "livedata/subscription.h"
#include "store/undo_history.h"

namespace hearthmark::presentation {

// What the menu offers to take back and to do again.
struct UndoMenuViewState {
    struct Item {
        std::string text;
        livedata::Action onTap;
    };

    // Absent where nothing comes next.
    std::optional<Item> undo;
    std::optional<Item> redo;
};

// Says what the next step is, there and back. Main thread.
class UndoMenuViewModel final : public std::enable_shared_from_this<UndoMenuViewModel> {
 public:
    // To be held by a shared pointer: its closures hold it weakly.
    explicit UndoMenuViewModel(std::shared_ptr<store::UndoHistory> undoHistory);

    livedata::Published<UndoMenuViewState>& viewState() { return viewState_; }

    // Called once.
    void startObserving();

 private:
    void show();

    std::shared_ptr<store::UndoHistory> undoHistory_;
    livedata::Published<UndoMenuViewState> viewState_;
    livedata::Subscription cancellable_;
};

}  // namespace hearthmark::presentation
