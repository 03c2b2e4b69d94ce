// SPDX-License-Identifier: MIT
#include "app/home_view_factory.h"

#include <utility>

#include "presentation/view_model_factories.h"
#include "ui/home_adapter.h"
#include "ui/home_view.h"

namespace hearthmark::app {

HomeViewFactory::HomeViewFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock,
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId,
    TimeKeepingProviderMaker makeTimeKeepingProvider,
    std::shared_ptr<exporting::Clipboard> clipboard, Actions actions)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      mutableSelectedTaskId_(std::move(mutableSelectedTaskId)),
      makeTimeKeepingProvider_(std::move(makeTimeKeepingProvider)),
      clipboard_(std::move(clipboard)),
      actions_(std::move(actions)) {}

std::unique_ptr<services::HomeViewProtocol> HomeViewFactory::makeHomeView() {
    const presentation::HomeVMFactory homeVMFactory(
        dataOperationsService_,
        std::make_shared<presentation::SelectedTaskIdPublisher>(*mutableSelectedTaskId_));
    const ui::HomeViewSubviewsFactory subviewsFactory(dataOperationsService_, liveDataFactory_,
                                                      clock_, mutableSelectedTaskId_,
                                                      makeTimeKeepingProvider_, clipboard_);
    return std::make_unique<ui::HomeView>(
        std::make_unique<ui::HomeAdapter>(homeVMFactory.makeViewModel(), subviewsFactory,
                                          actions_.quit),
        actions_.windowShouldClose);
}

}  // namespace hearthmark::app
