// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "objectstore/fetched_results_controller.h"
#include "objectstore/managed_object.h"
#include "store/name_representable.h"

namespace hearthmark::store {

class Interval;
class Note;

// A user's task. Deleting it deletes its intervals and notes.
class Task final : public objectstore::ManagedObject, public NameRepresentable {
 public:
    static const objectstore::EntityDescription& entity();
    static objectstore::FetchRequest<Task> fetchRequest();

    const objectstore::EntityDescription& entityDescription() const override { return entity(); }

    void setId(std::optional<base::Uuid> id) { assign(id_, id); }
    void setCreationDate(std::optional<base::Date> date) { assign(creationDate_, date); }
    void setName(std::optional<std::string> name) { assign(name_, std::move(name)); }

    // An object has one task at most: adding takes it out of the one it was in. Removing one that
    // is not in the set does nothing.
    void addIntervalsObject(Interval& interval);
    void removeIntervalsObject(Interval& interval);
    void addNotesObject(Note& note);
    void removeNotesObject(Note& note);

    const std::optional<base::Uuid>& id() const { return id_; }
    std::optional<base::Date> creationDate() const { return creationDate_; }
    const std::optional<std::string>& name() const override { return name_; }
    // In no order. The pointers are valid until the set changes.
    const std::vector<Interval*>& intervals() const { return intervals_; }
    const std::vector<Note*>& notes() const { return notes_; }

    struct IntervalSummary {
        std::vector<const Interval*> running;
        // The sum of the durations of those that do not run.
        base::Seconds settledDuration{0};
        // Of the creation dates.
        std::optional<base::Date> latestCreation;
    };

    // Worked out when first asked for after a change of the intervals and then remembered, so that
    // a tick costs what runs and not what was ever done.
    const IntervalSummary& intervalSummary() const;

 private:
    friend class Interval;
    friend class Note;

    void willChange() override { intervalSummary_.reset(); }

    std::optional<base::Uuid> id_;
    base::OptionalDate creationDate_;
    std::optional<std::string> name_;
    std::vector<Interval*> intervals_;
    std::vector<Note*> notes_;
    mutable std::optional<IntervalSummary> intervalSummary_;
};

}  // namespace hearthmark::store
