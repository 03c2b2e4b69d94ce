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
    void setDoneDate(std::optional<base::Date> date) { assign(doneDate_, date); }

    // An object has one task at most: adding takes it out of the one it was in. Removing one that
    // is not in the set does nothing.
    void addIntervalsObject(Interval& interval);
    void removeIntervalsObject(Interval& interval);
    void addNotesObject(Note& note);
    void removeNotesObject(Note& note);

    const std::optional<base::Uuid>& id() const { return id_; }
    std::optional<base::Date> creationDate() const { return creationDate_; }
    const std::optional<std::string>& name() const override { return name_; }
    // When a person was done with it.
    std::optional<base::Date> doneDate() const { return doneDate_; }
    // In no order. The pointers are valid until the set changes.
    const std::vector<Interval*>& intervals() const { return intervals_; }
    const std::vector<Note*>& notes() const { return notes_; }

    // Those that do not run.
    struct SettledIntervals {
        // Newest first.
        std::vector<const Interval*> intervals;
        // The sum of theirs.
        base::Seconds duration{0};
    };

    struct IntervalSummary {
        // Newest first.
        std::vector<const Interval*> running;
        // The same one as before where nothing of them has changed.
        std::shared_ptr<const SettledIntervals> settled;
    };

    // Worked out when first asked for after a change, of the task or of its intervals, and then
    // remembered: a tick costs what runs and not what was ever done, and who still holds the one of
    // before sees by its address whether anything has changed. Its pointers are valid until then.
    const std::shared_ptr<const IntervalSummary>& intervalSummary() const;

    // One of its intervals is running.
    bool isRunning() const { return !intervalSummary()->running.empty(); }

    // Newest first. Remembered in the same way: the same one until a note changes, comes or goes.
    const std::shared_ptr<const std::vector<const Note*>>& newestNotes() const;

 private:
    friend class Interval;
    friend class Note;

    void willChange() override;
    // Before a change of one of them alone.
    void intervalWillChange(const Interval& interval);
    void noteWillChange();

    std::optional<base::Uuid> id_;
    base::OptionalDate creationDate_;
    std::optional<std::string> name_;
    base::OptionalDate doneDate_;
    std::vector<Interval*> intervals_;
    std::vector<Note*> notes_;
    mutable std::shared_ptr<const IntervalSummary> intervalSummary_;
    // As last worked out; absent where one of them has changed since.
    mutable std::shared_ptr<const SettledIntervals> settledIntervals_;
    mutable std::shared_ptr<const std::vector<const Note*>> newestNotes_;
    mutable bool areNotesCurrent_ = false;
};

}  // namespace hearthmark::store
