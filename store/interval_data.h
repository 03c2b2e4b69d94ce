// SPDX-License-Identifier: MIT
#pragma once

#include "base/date.h"
#include "base/uuid.h"
#include "store/interval_state.h"

namespace hearthmark::store {

// What a new interval is made from.
struct IntervalData {
    base::Date creationDate;
    base::Seconds duration;  // already spent
    base::Uuid id;
    base::Seconds maxDuration;
    IntervalState state;

    bool operator==(const IntervalData&) const = default;
};

}  // namespace hearthmark::store
