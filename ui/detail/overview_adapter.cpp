// SPDX-License-Identifier: MIT
#include "ui/detail/overview_adapter.h"

#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

OverviewAdapter::OverviewAdapter(std::shared_ptr<presentation::FocusOverviewViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    viewModel_->startObserving();
}

std::optional<base::Date> OverviewAdapter::dayStart(int day) const {
    const auto& state = viewModel_->viewState().value();
    const auto place = static_cast<std::size_t>(day);
    return state && day >= 0 && place < state->days.size() ? std::optional(state->days[place].start)
                                                           : std::nullopt;
}

void OverviewAdapter::show() {
    const auto& state = viewModel_->viewState().value();
    if (!state) {
        return;
    }
    days_.show(state->days);
    if (replace(todayStart_,
                state->days.empty() ? std::nullopt : std::optional(state->days.back().start))) {
        emit todayStartChanged();
    }
    if (replace(today_, toQString(state->today))) {
        emit todayChanged();
    }
}

}  // namespace hearthmark::ui
