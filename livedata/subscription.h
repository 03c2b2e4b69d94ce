// SPDX-License-Identifier: MIT
#pragma once

#include <boost/signals2/connection.hpp>
#include <type_traits>
#include <utility>

namespace hearthmark::livedata {

// Holds one subscription; it ends when this is destroyed. May outlive the publisher.
class [[nodiscard]] Subscription {
 public:
    Subscription() = default;
    explicit Subscription(const boost::signals2::connection& connection)
        : connection_(connection) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&&) noexcept = default;
    ~Subscription() = default;

    void cancel() { connection_.disconnect(); }

 private:
    boost::signals2::scoped_connection connection_;
};

static_assert(!std::is_copy_constructible_v<Subscription>);
static_assert(std::is_nothrow_move_constructible_v<Subscription>);

}  // namespace hearthmark::livedata
