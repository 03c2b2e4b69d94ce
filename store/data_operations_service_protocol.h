// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "livedata/published.h"
#include "store/change.h"
#include "store/import_plan.h"
#include "store/interval_correction.h"
#include "store/interval_data.h"
#include "store/interval_finishing.h"
#include "store/note_data.h"

namespace hearthmark::store {

// Every change of the store. Each operation ends with one save, and when it returns the change is
// on the disk and everybody has been told. An id that matches nothing is ignored and nothing is
// saved. A store that cannot be written ends the program. Main thread only.
class DataOperationsServiceProtocol : public IntervalFinishing {
 public:
    // With a new random id, which is returned, created now.
    virtual base::Uuid createTask(const std::string& name) = 0;

    // Together with its intervals and notes.
    virtual void deleteTask(const base::Uuid& taskId) = 0;

    virtual void renameTask(const base::Uuid& taskId, const std::string& name) = 0;

    // Now. Ignored where it runs or is so already.
    virtual void markTaskDone(const base::Uuid& taskId) = 0;

    virtual void reopenTask(const base::Uuid& taskId) = 0;

    // A running one is a start, and no change that can be taken back; a finished one is. With a
    // start the task is done no longer.
    virtual void addInterval(const IntervalData& interval, const base::Uuid& taskId) = 0;

    // At the present moment, with the running stretch folded into its duration.
    virtual void finishInterval(const base::Uuid& intervalId, const base::Uuid& taskId) = 0;

    // Takes it out of its task's set. It stays in the store without a task, so that it can be put
    // back as it was; if it runs it goes on running.
    virtual void deleteInterval(const base::Uuid& intervalId, const base::Uuid& taskId) = 0;

    // Ignored where one of the tasks is not there.
    virtual void correctInterval(const base::Uuid& intervalId, const base::Uuid& taskId,
                                 const IntervalCorrection& correction) = 0;

    // Gives what runs towards a length so much more of it; ignored for all others.
    virtual void extendInterval(const base::Uuid& intervalId, const base::Uuid& taskId,
                                base::Seconds by) = 0;

    virtual void addNote(const NoteData& note, const base::Uuid& taskId) = 0;

    // Takes it out of its task's set; it stays in the store without a task.
    virtual void deleteNote(const base::Uuid& noteId, const base::Uuid& taskId) = 0;

    virtual void editNote(const base::Uuid& noteId, const base::Uuid& taskId,
                          const std::string& text) = 0;

    // Ignored where one of the tasks is not there.
    virtual void moveNote(const base::Uuid& noteId, const base::Uuid& taskId,
                          const base::Uuid& newTaskId) = 0;

    // What importTasks() would add at this moment. For both, no id stands twice in the records.
    virtual ImportCounts importable(const std::vector<TaskRecord>& tasks) const = 0;

    // Adds the tasks that are not there, and to those that are the intervals and notes that are
    // nowhere in the store. Changes nothing that is there; what ran or was paused comes finished,
    // with the time that its record says. What has no id is passed over: it would come again with
    // each import.
    virtual void importTasks(const std::vector<TaskRecord>& tasks) = 0;

    // The latest change that can be taken back; told when it is on the disk.
    virtual livedata::Published<std::shared_ptr<const Change>>& latestChange() = 0;

    // Takes a change back, once. Returns what takes that back in turn; null where nothing matched.
    virtual std::shared_ptr<const Change> undo(const Change& change) = 0;

    // Stamps every running interval, so that a crash after it loses only the time since.
    virtual void markRunningIntervalsVisited(base::Date at) = 0;

    // After the machine slept: takes what lies between the two moments out of every running
    // interval, which goes on running from the later one.
    virtual void excludeTime(base::Date from, base::Date to) = 0;

    // At launch, before resumePausedIntervals(): ends what the previous run left running, with the
    // time up to its last stamp. Intervals without a task are left as they are.
    virtual void finishIntervalsLeftRunning() = 0;

    // At launch: lets what was paused at quit run on from now. Intervals without a task are left as
    // they are.
    virtual void resumePausedIntervals() = 0;

    // At quit: folds the running stretch of every running interval into its duration.
    virtual void pauseRunningIntervals() = 0;
};

}  // namespace hearthmark::store
