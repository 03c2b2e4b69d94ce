// SPDX-License-Identifier: MIT
#include "app/home_view_factory.h"

#include <optional>
#include <utility>

#include "presentation/selected_task_id.h"
#include "presentation/view_model_factories.h"
#include "ui/home_adapter.h"
#include "ui/home_view.h"
#include "ui/home_view_subviews_factory.h"

namespace hearthmark::app {

HomeViewFactory::HomeViewFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock, TimeKeepingProviderMaker makeTimeKeepingProvider,
    Actions actions)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      makeTimeKeepingProvider_(std::move(makeTimeKeepingProvider)),
      actions_(std::move(actions)) {}

std::unique_ptr<services::HomeViewProtocol> HomeViewFactory::makeHomeView() {
    const auto selection = std::make_shared<presentation::SelectedTaskId>(std::nullopt);
    const presentation::HomeVMFactory homeVMFactory(
        dataOperationsService_,
        std::make_shared<presentation::SelectedTaskIdPublisher>(*selection));
    const ui::HomeViewSubviewsFactory subviewsFactory(dataOperationsService_, liveDataFactory_,
                                                      clock_, selection, makeTimeKeepingProvider_);
    return std::make_unique<ui::HomeView>(
        std::make_unique<ui::HomeAdapter>(homeVMFactory.makeViewModel(), subviewsFactory,
                                          actions_.quit),
        actions_.windowShouldClose);
}

}  // namespace hearthmark::app
