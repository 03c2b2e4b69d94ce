// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace hearthmark::base {

// A closure that calls a member or another function with the object, as long as there is one: for
// what is handed out or registered by an owner that may go first.
template <class Object, class Function>
auto weakly(std::weak_ptr<Object> object, Function function) {
    return [object = std::move(object), function = std::move(function)](const auto&... arguments) {
        if (const std::shared_ptr<Object> kept = object.lock()) {
            std::invoke(function, *kept, arguments...);
        }
    };
}

}  // namespace hearthmark::base
