// SPDX-License-Identifier: MIT
#include "services/focus.h"

#include <algorithm>
#include <cmath>

#include "store/interval.h"
#include "store/time_texts.h"

namespace hearthmark::services {

bool canStartFocus(const store::Tasks& tasks) {
    return std::none_of(tasks.begin(), tasks.end(),
                        [](const store::Task& task) { return task.isRunning(); });
}

base::Uuid startFocus(store::DataOperationsServiceProtocol& operations, const base::Clock& clock,
                      const base::Uuid& taskId, base::Seconds maxDuration) {
    const base::Uuid id = base::Uuid::random();
    const base::Date created = clock.now();
    const base::Date started = clock.now();
    operations.addInterval({.creationDate = created,
                            .duration = base::Seconds(0),
                            .id = id,
                            .maxDuration = maxDuration,
                            .state = store::IntervalState::running(started)},
                           taskId);
    return id;
}

std::optional<base::Seconds> restOf(const store::Interval& interval) {
    constexpr base::Seconds kLeastRest{1};
    const base::Seconds rest = interval.maxDuration() - interval.duration();
    // A damaged file may hold times that are less than nothing, or endless.
    if (!interval.isFinished() || interval.duration() < base::Seconds(0) || !(rest >= kLeastRest) ||
        !store::formattedDuration(rest)) {
        return std::nullopt;
    }
    return base::Seconds(std::floor(interval.maxDuration().count()) -
                         std::floor(interval.duration().count()));
}

}  // namespace hearthmark::services
