// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "base/uuid.h"

namespace hearthmark::livedata {

// A closure with an identity: equal to itself only, so that view states can be kept and compared.
// Its identifier is made when it is first hashed, which must happen on one thread.
template <class... Argument>
class Block {
 public:
    explicit Block(std::function<void(Argument...)> containedBlock)
        : containedBlock_(std::move(containedBlock)) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    void operator()(Argument... argument) const { containedBlock_(std::move(argument)...); }

    friend bool operator==(const Block& a, const Block& b) { return &a == &b; }

    std::size_t hash() const { return identifier().hash(); }

 private:
    static_assert(sizeof...(Argument) <= 1);

    const base::Uuid& identifier() const {
        if (!identifier_) {
            identifier_ = base::Uuid::random();
        }
        return *identifier_;
    }

    std::function<void(Argument...)> containedBlock_;
    mutable std::optional<base::Uuid> identifier_;
};

// What a view state carries for each thing that can be done. Never null in a view state.
using Action = std::shared_ptr<const Block<>>;
template <class Argument>
using ActionOn = std::shared_ptr<const Block<Argument>>;

inline Action makeAction(std::function<void()> closure) {
    return std::make_shared<const Block<>>(std::move(closure));
}

}  // namespace hearthmark::livedata

template <class... Argument>
struct std::hash<hearthmark::livedata::Block<Argument...>> {
    std::size_t operator()(const hearthmark::livedata::Block<Argument...>& block) const {
        return block.hash();
    }
};
