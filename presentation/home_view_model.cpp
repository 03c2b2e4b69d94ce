// SPDX-License-Identifier: MIT
#include "presentation/home_view_model.h"

#include <utility>

#include "base/weakly.h"

namespace hearthmark::presentation {

HomeViewModel::HomeViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<SelectedTaskIdPublisher> publisher)
    : dataOperationsService_(std::move(dataOperationsService)), publisher_(std::move(publisher)) {}

std::shared_ptr<HomeViewModel> HomeViewModel::make(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<SelectedTaskIdPublisher> selectedTaskId) {
    std::shared_ptr<HomeViewModel> model(
        new HomeViewModel(std::move(dataOperationsService), std::move(selectedTaskId)));
    model->cancellables_.push_back(model->publisher_->subscribe(base::weakly(
        std::weak_ptr(model),
        [](auto& self, const auto& taskId) { self.selectedTaskId_.setValue(taskId); })));
    return model;
}

}  // namespace hearthmark::presentation
