// SPDX-License-Identifier: MIT
#pragma once

#include <boost/signals2/connection.hpp>
#include <memory>
#include <type_traits>
#include <utility>

namespace hearthmark::livedata {

// Holds one subscription; it ends when this is destroyed. May outlive the publisher, and keeps
// alive what stands between the two.
class [[nodiscard]] Subscription {
 public:
    Subscription() = default;
    explicit Subscription(const boost::signals2::connection& connection)
        : connection_(connection) {}
    Subscription(Subscription subscription, std::shared_ptr<const void> kept)
        : kept_(std::move(kept)), connection_(std::move(subscription.connection_)) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&&) noexcept = default;
    ~Subscription() = default;

 private:
    std::shared_ptr<const void> kept_;
    boost::signals2::scoped_connection connection_;
};

static_assert(!std::is_copy_constructible_v<Subscription>);
static_assert(std::is_nothrow_move_constructible_v<Subscription>);

}  // namespace hearthmark::livedata
