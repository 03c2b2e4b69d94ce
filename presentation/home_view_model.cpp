// SPDX-License-Identifier: MIT
#include "presentation/home_view_model.h"

#include <utility>

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
    model->cancellables_.push_back(model->publisher_->subscribe(
        [weak = std::weak_ptr(model)](const std::optional<base::Uuid>& taskId) {
            if (const auto self = weak.lock()) {
                self->selectedTaskId_.setValue(taskId);
            }
        }));
    return model;
}

}  // namespace hearthmark::presentation
