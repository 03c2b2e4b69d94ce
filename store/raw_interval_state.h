// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/date.h"
#include "objectstore/fetched_results_controller.h"
#include "objectstore/managed_object.h"
#include "objectstore/managed_object_context.h"
#include "store/interval_state.h"

namespace hearthmark::store {

class Interval;

// The stored form of an interval's state.
class RawIntervalState final : public objectstore::ManagedObject {
 public:
    static const objectstore::EntityDescription& entity();
    static objectstore::FetchRequest<RawIntervalState> fetchRequest();

    // A new one that says `state`; it belongs to no interval yet.
    static std::shared_ptr<RawIntervalState> create(const IntervalState& state,
                                                    objectstore::ManagedObjectContext& context);

    const objectstore::EntityDescription& entityDescription() const override { return entity(); }

    void setState(std::int16_t state) { assign(state_, state); }
    void setState(StateCode state) { setState(static_cast<std::int16_t>(state)); }
    void setStarted(std::optional<base::Date> started) { assign(started_, started); }
    void setVisited(std::optional<base::Date> visited) { assign(visited_, visited); }
    void setInterval(Interval* interval);

    // To running from a moment on, to paused, to finished. The stamp of the last visit stays.
    void run(base::Date from);
    void pause();
    void close();

    // One of StateCode, or anything else a file may hold.
    std::int16_t state() const { return state_; }
    // Present only while running.
    std::optional<base::Date> started() const { return started_; }
    std::optional<base::Date> visited() const { return visited_; }
    Interval* interval() const { return interval_; }

    // Absent where the code is unknown, or says running without a start.
    std::optional<IntervalState> intervalState() const;

    // Whether that is running.
    bool isRunning() const {
        return state_ == static_cast<std::int16_t>(StateCode::running) && started().has_value();
    }

 private:
    friend class Interval;

    void willChange() override;

    std::int16_t state_ = static_cast<std::int16_t>(StateCode::paused);
    base::OptionalDate started_;
    base::OptionalDate visited_;
    Interval* interval_ = nullptr;
};

}  // namespace hearthmark::store
