// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/clock.h"
#include "base/fatal_error.h"
#include "objectstore/persistent_container.h"
#include "objectstore/store_error.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"
#include "store/running_intervals.h"

namespace hearthmark::store {

// The one writer of the store. Finds tasks in the current set of its own live provider, their
// intervals and notes in their sets, and what runs in the index; changes them in the view context
// and saves.
class DataOperationsService final : public DataOperationsServiceProtocol {
 public:
    DataOperationsService(const LiveDataProvidingFactoryProtocol& liveDataProvidingFactory,
                          std::shared_ptr<objectstore::PersistentContainer> persistentContainer,
                          std::shared_ptr<const base::Clock> clock, base::FatalErrorHandler fatal);

    base::Uuid createTask(const std::string& name) override;
    void deleteTask(const base::Uuid& taskId) override;
    void renameTask(const base::Uuid& taskId, const std::string& name) override;
    void markTaskDone(const base::Uuid& taskId) override;
    void reopenTask(const base::Uuid& taskId) override;
    void addInterval(const IntervalData& interval, const base::Uuid& taskId) override;
    void finishInterval(const base::Uuid& intervalId, const base::Uuid& taskId) override;
    void deleteInterval(const base::Uuid& intervalId, const base::Uuid& taskId) override;
    void correctInterval(const base::Uuid& intervalId, const base::Uuid& taskId,
                         const IntervalCorrection& correction) override;
    void extendInterval(const base::Uuid& intervalId, const base::Uuid& taskId,
                        base::Seconds by) override;
    void addNote(const NoteData& note, const base::Uuid& taskId) override;
    void deleteNote(const base::Uuid& noteId, const base::Uuid& taskId) override;
    void editNote(const base::Uuid& noteId, const base::Uuid& taskId,
                  const std::string& text) override;
    void moveNote(const base::Uuid& noteId, const base::Uuid& taskId,
                  const base::Uuid& newTaskId) override;
    ImportCounts importable(const std::vector<TaskRecord>& tasks) const override;
    void importTasks(const std::vector<TaskRecord>& tasks) override;
    livedata::Published<std::shared_ptr<const Change>>& latestChange() override {
        return latestChange_;
    }
    std::shared_ptr<const Change> undo(const Change& change) override;
    void finishDueIntervals() override;
    void markRunningIntervalsVisited(base::Date at) override;
    void excludeTime(base::Date from, base::Date to) override;
    void finishIntervalsLeftRunning() override;
    void resumePausedIntervals() override;
    void pauseRunningIntervals() override;

 private:
    objectstore::ManagedObjectContext& context() const {
        return persistentContainer_->viewContext();
    }
    // Null where there is none.
    Task* task(const base::Uuid& taskId) const;
    Interval* interval(const base::Uuid& intervalId, const base::Uuid& taskId) const;
    // Of the task that `taskId` names.
    void change(Change::Kind kind, const base::Uuid& taskId, const Edit& edit);
    std::optional<Edit> applyAndSave(const Edit& edit);
    void save();
    [[noreturn]] void fail(const objectstore::StoreError& error);

    std::shared_ptr<objectstore::PersistentContainer> persistentContainer_;
    std::shared_ptr<const base::Clock> clock_;
    base::FatalErrorHandler fatal_;
    std::unique_ptr<LiveDataProvider<Task>> tasksProvider_;
    RunningIntervals runningIntervals_;
    livedata::Published<std::shared_ptr<const Change>> latestChange_;
};

}  // namespace hearthmark::store
