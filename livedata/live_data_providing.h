// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "livedata/read_only_current_value_subject.h"
#include "objectstore/object_set.h"

namespace hearthmark::livedata {

// The always current set of all stored objects of one entity.
template <class Entity>
using CurrentItems = ReadOnlyCurrentValueSubject<objectstore::ObjectSet<Entity>>;

// Publishes the set of all objects of one entity, anew after each change of the store. The order of
// use: make it, subscribe to currentItems(), call startObserving(). The first value is therefore
// the empty set, followed at once by the fetched one.
template <class Entity>
class LiveDataProviding {
 public:
    virtual ~LiveDataProviding() = default;

    // Completes when the provider is destroyed.
    virtual std::shared_ptr<CurrentItems<Entity>> currentItems() = 0;

    // After it returns, currentItems() holds the full set. A second call does nothing.
    virtual void startObserving() = 0;
};

}  // namespace hearthmark::livedata
