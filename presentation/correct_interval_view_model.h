// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "base/uuid.h"
#include "presentation/correct_interval_view_state.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// Corrects one interval of a task, or adds a past one. Made for each presentation of the sheet.
// Main thread.
class CorrectIntervalViewModel {
 public:
    // What the fields begin with.
    struct Beginning {
        bool isRunning = false;
        // Absent where the interval has no date, or one that the calendar does not know.
        std::optional<base::LocalTime> start;
        base::Seconds timeSpent{0};
        base::Seconds length{0};
    };
    struct Choice {
        base::Uuid taskId;
        std::string name;
    };

    // Without an id, or with one that matches nothing, it adds an interval, which begins as one of
    // half an hour that ends now.
    CorrectIntervalViewModel(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        const store::LiveDataProvidingFactoryProtocol& liveDataFactory,
        std::shared_ptr<const base::Clock> clock, std::shared_ptr<const base::Calendar> calendar,
        const base::Uuid& taskId, const std::optional<base::Uuid>& intervalId);

    const Beginning& beginning() const { return beginning_; }
    bool isNew() const { return !intervalId_; }
    const base::Uuid& taskId() const { return taskId_; }
    // Of all tasks, the newest first.
    std::vector<Choice> tasks() const;

    CorrectIntervalViewState check(const IntervalForm& form) const;
    // Does nothing where there is a fault.
    void save(const IntervalForm& form);

 private:
    // Null where it is a new one, or gone.
    const store::Interval* interval() const;
    // As the form would have it. Absent where it says nothing that there is.
    std::optional<base::Date> start(const IntervalForm& form) const;
    base::Seconds timeSpent(const IntervalForm& form) const;
    std::optional<CorrectIntervalViewState::Fault> fault(const IntervalForm& form) const;
    std::optional<std::string> startFault(const IntervalForm& form) const;
    std::optional<std::string> timeSpentFault(const IntervalForm& form) const;
    std::string overlap(const IntervalForm& form) const;

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const base::Clock> clock_;
    std::shared_ptr<const base::Calendar> calendar_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    base::Uuid taskId_;
    std::optional<base::Uuid> intervalId_;
    // When it began before; of a new one, what is offered.
    std::optional<base::Date> creationDate_;
    Beginning beginning_;
};

struct CorrectIntervalVMFactory {
    // Without an id to add one.
    std::unique_ptr<CorrectIntervalViewModel> makeViewModel(
        const std::optional<base::Uuid>& intervalId) const {
        return std::make_unique<CorrectIntervalViewModel>(dataOperationsService, *liveDataFactory,
                                                          clock, calendar, taskId, intervalId);
    }

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory;
    std::shared_ptr<const base::Clock> clock;
    std::shared_ptr<const base::Calendar> calendar;
    base::Uuid taskId;
};

}  // namespace hearthmark::presentation
