// SPDX-License-Identifier: MIT
#include "store/interval_state.h"

#include <boost/container_hash/hash.hpp>
#include <cmath>

namespace hearthmark::store {

namespace {

void feed(std::size_t& hash, base::Date date) {
    boost::hash_combine(hash, date.sinceReferenceDate().count());
}

}  // namespace

std::size_t IntervalState::hash() const {
    std::size_t hash = 0;
    boost::hash_combine(hash, value_.index());
    if (const Running* running = asRunning()) {
        feed(hash, running->started);
        boost::hash_combine(hash, running->visited ? 1 : 0);
        if (running->visited) {
            feed(hash, *running->visited);
        }
    }
    return hash;
}

std::optional<IntervalState> intervalState(std::int16_t code, std::optional<base::Date> started,
                                           std::optional<base::Date> visited) {
    switch (static_cast<StateCode>(code)) {
        case StateCode::running:
            return started ? std::optional(IntervalState::running(*started, visited))
                           : std::nullopt;
        case StateCode::paused:
            return IntervalState::paused();
        case StateCode::finished:
            return IntervalState::finished();
    }
    return std::nullopt;
}

base::Seconds totalDuration(base::Seconds duration, const std::optional<IntervalState>& state,
                            base::Date at) {
    const IntervalState::Running* running = state ? state->asRunning() : nullptr;
    if (running == nullptr) {
        return duration;
    }
    const base::Seconds elapsed = at - running->started;
    // Written so that what is not a number counts as nothing too, and so that none comes out: a
    // damaged file may hold endless times, and the store cannot hold their difference.
    const base::Seconds total = elapsed > base::Seconds(0) ? duration + elapsed : duration;
    return std::isnan(total.count()) ? duration : total;
}

}  // namespace hearthmark::store
