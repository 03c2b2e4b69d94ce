// SPDX-License-Identifier: MIT
#include "store/hearthmark_model.h"

#include "store/interval.h"
#include "store/note.h"
#include "store/raw_interval_state.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

// "Hthm" in ASCII.
constexpr std::int32_t kApplicationId = 0x4874686d;
// Goes up with every new attribute; 2 brought Task.doneDate.
constexpr std::int32_t kVersion = 2;

}  // namespace

objectstore::Model hearthmarkModel() {
    return {.applicationId = kApplicationId,
            .version = kVersion,
            .entities = {&Task::entity(), &Interval::entity(), &RawIntervalState::entity(),
                         &Note::entity()}};
}

}  // namespace hearthmark::store
