// SPDX-License-Identifier: MIT
#include "ui/focus_announcement_adapter.h"

#include <utility>

#include "ui/text_conversion.h"

namespace hearthmark::ui {

FocusAnnouncementAdapter::FocusAnnouncementAdapter(
    std::shared_ptr<presentation::FocusAnnouncementViewModel> viewModel)
    : viewModel_(std::move(viewModel)),
      subscription_(viewModel_->announcement().subscribeDidChange([this] {
          // In this order: what appears is read at once.
          emit textChanged();
          emit presentedChanged();
      })) {}

void FocusAnnouncementAdapter::setShown(bool isShown) {
    isShown_ = isShown;
    emit presentedChanged();
}

bool FocusAnnouncementAdapter::isPresented() const {
    return isShown_ && !viewModel_->announcement().value().empty();
}

QString FocusAnnouncementAdapter::text() const {
    return toQString(viewModel_->announcement().value());
}

}  // namespace hearthmark::ui
