// SPDX-License-Identifier: MIT
#include "store/counted_time.h"

#include <algorithm>
#include <utility>

#include "store/interval.h"
#include "store/raw_interval_state.h"

namespace hearthmark::store {

CountedTime countedTime(const Interval& interval) {
    return {.duration = interval.duration(),
            .started = interval.isRunning() ? interval.rawState()->started() : std::nullopt};
}

void setCountedTime(Interval& interval, const CountedTime& time) {
    interval.setDuration(time.duration);
    if (interval.isRunning() && time.started) {
        interval.rawState()->setStarted(time.started);
    }
}

base::Seconds difference(const CountedTime& from, const CountedTime& to) {
    const base::Seconds later =
        from.started && to.started ? *to.started - *from.started : base::Seconds(0);
    return to.duration - from.duration - later;
}

CountedTime withMore(CountedTime time, base::Seconds more, base::Date now) {
    time.duration += more;
    const base::Seconds missing = -std::min(time.duration, base::Seconds(0));
    time.duration = std::max(time.duration, base::Seconds(0));
    // Where the clock was set back it may start later than now already.
    if (time.started && *time.started < now) {
        time.started = std::min(*time.started + missing, now);
    }
    return time;
}

}  // namespace hearthmark::store
