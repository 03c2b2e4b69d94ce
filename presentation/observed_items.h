// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "livedata/subscription.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// Makes a provider of an entity, subscribes to its items and starts it, in the order in which that
// must be done. `provider` is set before it starts, so `onItems` may look at it.
template <class Entity>
livedata::Subscription observe(const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
                               const std::string& sortKey,
                               std::unique_ptr<store::LiveDataProvider<Entity>>& provider,
                               std::function<void(const objectstore::ObjectSet<Entity>&)> onItems) {
    provider = liveDataFactory.makeProvider<Entity>({.key = sortKey, .ascending = true});
    livedata::Subscription subscription = provider->currentItems()->subscribe(std::move(onItems));
    provider->startObserving();
    return subscription;
}

}  // namespace hearthmark::presentation
