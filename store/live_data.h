// SPDX-License-Identifier: MIT
#pragma once

#include "livedata/live_data_providing_factory.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/raw_interval_state.h"
#include "store/task.h"

namespace hearthmark::store {

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

}  // namespace hearthmark::store
