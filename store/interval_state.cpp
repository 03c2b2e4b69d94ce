// SPDX-License-Identifier: MIT
#include "store/interval_state.h"

#include <boost/container_hash/hash.hpp>

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

}  // namespace hearthmark::store
