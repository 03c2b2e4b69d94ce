// SPDX-License-Identifier: MIT
#include "objectstore/signal.h"

#include <cstddef>

namespace hearthmark::objectstore {

Subscription addSlot(SlotPlaces& places, std::shared_ptr<const void> slot) {
    std::erase_if(places, [](const auto& place) { return *place == nullptr; });
    places.push_back(std::make_shared<std::shared_ptr<const void>>(std::move(slot)));
    const auto end = [place = std::weak_ptr(places.back())](std::nullptr_t) {
        if (const auto kept = place.lock()) {
            kept->reset();
        }
    };
    return Subscription(std::shared_ptr<const void>(nullptr, end));
}

}  // namespace hearthmark::objectstore
