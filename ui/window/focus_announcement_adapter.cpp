// SPDX-License-Identifier: MIT
#include "ui/window/focus_announcement_adapter.h"

#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

FocusAnnouncementAdapter::FocusAnnouncementAdapter(
    std::shared_ptr<presentation::FocusAnnouncementViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->announcement());
}

void FocusAnnouncementAdapter::setShown(bool isShown) {
    StateAdapter::setShown(isShown);
    emit presentedChanged();
}

// In this order: what appears is read at once.
void FocusAnnouncementAdapter::show() {
    emit textChanged();
    emit presentedChanged();
}

bool FocusAnnouncementAdapter::isPresented() const {
    return isShown() && !viewModel_->announcement().value().empty();
}

QString FocusAnnouncementAdapter::text() const {
    return toQString(viewModel_->announcement().value());
}

}  // namespace hearthmark::ui
