// SPDX-License-Identifier: MIT
#include "ui/overview_adapter.h"

#include <utility>

#include "ui/text_conversion.h"

namespace hearthmark::ui {

OverviewAdapter::OverviewAdapter(std::shared_ptr<presentation::FocusOverviewViewModel> viewModel)
    : viewModel_(std::move(viewModel)),
      subscription_(viewModel_->viewState().subscribeDidChange([this] { show(); })) {
    viewModel_->startObserving();
}

void OverviewAdapter::setShown(bool isShown) {
    isShown_ = isShown;
    show();
}

void OverviewAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state || !isShown_) {
        return;
    }
    days_.show(state->days);
    if (QString today = toQString(state->today); today != today_) {
        today_ = std::move(today);
        emit todayChanged();
    }
}

}  // namespace hearthmark::ui
