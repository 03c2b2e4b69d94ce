// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace hearthmark::objectstore {

// Holds one subscription; it ends when this is destroyed. May outlive the publisher, and keeps
// alive what stands between the two.
class [[nodiscard]] Subscription {
 public:
    Subscription() = default;
    // The subscription ends with the last handle of its connection.
    explicit Subscription(std::shared_ptr<const void> connection)
        : connection_(std::move(connection)) {}
    Subscription(Subscription subscription, std::shared_ptr<const void> kept)
        : kept_(std::move(kept)), connection_(std::move(subscription.connection_)) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&&) noexcept = default;
    ~Subscription() = default;

 private:
    std::shared_ptr<const void> kept_;
    std::shared_ptr<const void> connection_;
};

static_assert(!std::is_copy_constructible_v<Subscription>);
static_assert(std::is_nothrow_move_constructible_v<Subscription>);

// Each slot of a signal in a place of its own, which is empty once the subscription has ended.
using SlotPlaces = std::vector<std::shared_ptr<std::shared_ptr<const void>>>;

// One for the signals of all types.
Subscription addSlot(SlotPlaces& places, std::shared_ptr<const void> slot);

// Calls its slots in the order in which they were connected. One thread.
//
// A slot may do whatever it likes: what is connected meanwhile is called from the next round on,
// what has ended is not called any more, and a round goes on when the signal is destroyed. An
// exception reaches the caller; the rest of the round is not called.
template <class... Argument>
class Signal {
 public:
    using Slot = std::function<void(Argument...)>;

    Subscription connect(Slot slot) {
        return addSlot(places_, std::make_shared<const Slot>(std::move(slot)));
    }

    void operator()(Argument... argument) const {
        for (const SlotPlaces round = places_; const auto& place : round) {
            // Kept while it runs, since it may end itself.
            if (const auto slot = std::static_pointer_cast<const Slot>(*place)) {
                (*slot)(argument...);
            }
        }
    }

 private:
    SlotPlaces places_;
};

}  // namespace hearthmark::objectstore
