// SPDX-License-Identifier: MIT
#include "store/interval.h"

#include "objectstore/entity_description.h"
#include "store/raw_interval_state.h"
#include "store/task.h"

namespace hearthmark::store {

const objectstore::EntityDescription& Interval::entity() {
    static const auto kDescription = objectstore::EntityDescription::of<Interval>("Interval")
                                         .attribute<&Interval::id_>("id")
                                         .attribute<&Interval::creationDate_>("creationDate")
                                         .attribute<&Interval::duration_>("duration")
                                         .attribute<&Interval::maxDuration_>("maxDuration")
                                         .reference<&Interval::task_, &Task::intervals_>("task");
    return kDescription;
}

objectstore::FetchRequest<Interval> Interval::fetchRequest() {
    return {.sortDescriptor = {.key = "creationDate", .ascending = true}};
}

std::shared_ptr<Interval> Interval::create(const IntervalData& data,
                                           objectstore::ManagedObjectContext& context) {
    auto interval = context.insert<Interval>();
    interval->setCreationDate(data.creationDate);
    interval->setDuration(data.duration);
    interval->setId(data.id);
    interval->setMaxDuration(data.maxDuration);
    interval->setRawState(RawIntervalState::create(data.state, context).get());
    return interval;
}

void Interval::setTask(Task* task) {
    relate(entity().references().front(), task);
}

void Interval::setRawState(RawIntervalState* rawState) {
    if (rawState != nullptr) {
        rawState->setInterval(this);
    } else if (rawState_ != nullptr) {
        rawState_->setInterval(nullptr);
    }
}

void Interval::finish() {
    if (rawState_ != nullptr && rawState_->visited()) {
        setDuration(totalDuration(*rawState_->visited()));
    } else if (rawState_ != nullptr && rawState_->started()) {
        setDuration(totalDuration(*rawState_->started()));
    } else {
        setDuration(base::Seconds(0));
    }
    if (rawState_ != nullptr) {
        rawState_->close();
    }
}

std::optional<IntervalState> Interval::intervalState() const {
    return rawState_ != nullptr ? rawState_->intervalState() : std::nullopt;
}

bool Interval::isRunning() const {
    return rawState_ != nullptr && rawState_->isRunning();
}

bool Interval::isFinished() const {
    const std::optional<IntervalState> state = intervalState();
    return state && state->isFinished();
}

void Interval::willChange() {
    if (task_ != nullptr) {
        task_->intervalWillChange(*this);
    }
}

base::Seconds Interval::totalDuration(base::Date at) const {
    return store::totalDuration(duration_, intervalState(), at);
}

}  // namespace hearthmark::store
