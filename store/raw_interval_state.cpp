// SPDX-License-Identifier: MIT
#include "store/raw_interval_state.h"

#include "objectstore/entity_description.h"
#include "store/interval.h"

namespace hearthmark::store {

const objectstore::EntityDescription& RawIntervalState::entity() {
    static const auto kDescription =
        objectstore::EntityDescription::of<RawIntervalState>("RawIntervalState")
            .attribute<&RawIntervalState::state_>("state")
            .attribute<&RawIntervalState::started_>("started")
            .attribute<&RawIntervalState::visited_>("visited")
            .reference<&RawIntervalState::interval_, &Interval::rawState_>("interval");
    return kDescription;
}

objectstore::FetchRequest<RawIntervalState> RawIntervalState::fetchRequest() {
    return {.sortDescriptor = {.key = "state", .ascending = true}};
}

std::shared_ptr<RawIntervalState> RawIntervalState::create(
    const IntervalState& state, objectstore::ManagedObjectContext& context) {
    auto raw = context.insert<RawIntervalState>();
    if (const IntervalState::Running* running = state.asRunning()) {
        raw->run(running->started);
        raw->setVisited(running->visited);
    } else if (state.isPaused()) {
        raw->pause();
    } else {
        raw->close();
    }
    return raw;
}

void RawIntervalState::setInterval(Interval* interval) {
    relate(entity().references().front(), interval);
}

void RawIntervalState::willChange() {
    if (interval_ != nullptr) {
        interval_->willChange();
    }
}

void RawIntervalState::run(base::Date from) {
    setStarted(from);
    setState(StateCode::running);
}

void RawIntervalState::pause() {
    setStarted(std::nullopt);
    setState(StateCode::paused);
}

void RawIntervalState::close() {
    setStarted(std::nullopt);
    setState(StateCode::finished);
}

std::optional<IntervalState> RawIntervalState::intervalState() const {
    return store::intervalState(state_, started(), visited());
}

}  // namespace hearthmark::store
