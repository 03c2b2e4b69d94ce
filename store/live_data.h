// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <vector>

#include "base/uuid.h"
#include "livedata/live_data_providing_factory.h"
#include "store/task.h"

namespace hearthmark::store {

class RawIntervalState;

// The live data of this program's entities.
using LiveDataProvidingFactoryProtocol =
    livedata::LiveDataProvidingFactoryProtocol<Task, Interval, RawIntervalState, Note>;
using LiveDataProvidingFactory =
    livedata::LiveDataProvidingFactory<Task, Interval, RawIntervalState, Note>;

template <class Entity>
using LiveDataProvider = livedata::AnyCoreDataLiveProvider<Entity>;
using Tasks = objectstore::ObjectSet<Task>;
using Intervals = objectstore::ObjectSet<Interval>;
using RawIntervalStates = objectstore::ObjectSet<RawIntervalState>;

// The first with the id; null where there is none.
inline Task* taskWithId(const Tasks& tasks, const base::Uuid& id) {
    const auto found =
        std::ranges::find_if(tasks, [&id](const Task& task) { return task.id() == id; });
    return found != tasks.end() ? &*found : nullptr;
}
template <class Entity>
Entity* firstWithId(const std::vector<Entity*>& entities, const base::Uuid& id) {
    const auto found =
        std::ranges::find_if(entities, [&id](const Entity* entity) { return entity->id() == id; });
    return found != entities.end() ? *found : nullptr;
}

}  // namespace hearthmark::store
