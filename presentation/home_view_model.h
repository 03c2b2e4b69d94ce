// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "base/uuid.h"
#include "livedata/published.h"
#include "livedata/read_only_current_value_subject.h"
#include "livedata/subscription.h"
#include "store/data_operations_service_protocol.h"

namespace hearthmark::presentation {

// The selection as those see it who only read it.
using SelectedTaskIdPublisher = livedata::ReadOnlyCurrentValueSubject<std::optional<base::Uuid>>;

class HomeViewModelProtocol {
 public:
    virtual ~HomeViewModelProtocol() = default;

    // The task shown in the detail pane; it keeps its id when the task is deleted.
    virtual livedata::Published<std::optional<base::Uuid>>& selectedTaskId() = 0;
};

// Follows the selection.
class HomeViewModel final : public HomeViewModelProtocol {
 public:
    // Made by a function, since what is subscribed to speaks at once and must find the model
    // weakly.
    static std::shared_ptr<HomeViewModel> make(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<SelectedTaskIdPublisher> selectedTaskId);

    livedata::Published<std::optional<base::Uuid>>& selectedTaskId() override {
        return selectedTaskId_;
    }

 private:
    explicit HomeViewModel(
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<SelectedTaskIdPublisher> publisher);

    livedata::Published<std::optional<base::Uuid>> selectedTaskId_;
    // Held and not used.
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<SelectedTaskIdPublisher> publisher_;
    std::vector<livedata::Subscription> cancellables_;
};

}  // namespace hearthmark::presentation
