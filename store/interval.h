// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "base/date.h"
#include "base/uuid.h"
#include "objectstore/fetched_results_controller.h"
#include "objectstore/managed_object.h"
#include "objectstore/managed_object_context.h"
#include "store/interval_data.h"
#include "store/interval_state.h"

namespace hearthmark::store {

class RawIntervalState;
class Task;

// One focus interval. Belongs to a task, or to none once it was taken out of its task's set.
// Deleting it deletes its raw state.
class Interval final : public objectstore::ManagedObject {
 public:
    static const objectstore::EntityDescription& entity();
    static objectstore::FetchRequest<Interval> fetchRequest();

    // A new interval with its state; the caller attaches the task.
    static std::shared_ptr<Interval> create(const IntervalData& data,
                                            objectstore::ManagedObjectContext& context);

    const objectstore::EntityDescription& entityDescription() const override { return entity(); }

    void setId(std::optional<base::Uuid> id) { assign(id_, id); }
    void setCreationDate(std::optional<base::Date> date) { assign(creationDate_, date); }
    void setDuration(base::Seconds duration) { assign(duration_, duration); }
    void setMaxDuration(base::Seconds maxDuration) { assign(maxDuration_, maxDuration); }
    void setTask(Task* task);
    void setRawState(RawIntervalState* rawState);

    // Ends it at the last moment at which the program is known to have seen it run: its stamp, else
    // its start. Without either nothing is known of it, so the time spent becomes 0. The caller
    // saves.
    void finish();

    const std::optional<base::Uuid>& id() const { return id_; }
    std::optional<base::Date> creationDate() const { return creationDate_; }
    // Time already spent, without the running stretch.
    base::Seconds duration() const { return duration_; }
    // The length that it aims at; 0 for no limit.
    base::Seconds maxDuration() const { return maxDuration_; }
    Task* task() const { return task_; }
    RawIntervalState* rawState() const { return rawState_; }

    // Absent where the raw state is missing or means nothing: such an interval never counts time.
    std::optional<IntervalState> intervalState() const;

    // Time spent up to a moment: the duration, and while it runs the stretch since its start, which
    // is never less than nothing.
    base::Seconds totalDuration(base::Date at) const;

    // Whether that is running.
    bool isRunning() const;

    // Whether that is finished.
    bool isFinished() const;

 private:
    friend class RawIntervalState;

    // What the task knows of its intervals changes with them.
    void willChange() override;

    std::optional<base::Uuid> id_;
    base::OptionalDate creationDate_;
    base::Seconds duration_{0};
    base::Seconds maxDuration_{0};
    Task* task_ = nullptr;
    RawIntervalState* rawState_ = nullptr;
};

}  // namespace hearthmark::store
