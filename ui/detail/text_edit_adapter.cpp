// SPDX-License-Identifier: MIT
#include "ui/detail/text_edit_adapter.h"

#include <utility>

#include "base/text.h"

namespace hearthmark::ui {

TextEditAdapter::TextEditAdapter(std::shared_ptr<presentation::TextEditViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    viewModel_->startObserving();
}

void TextEditAdapter::type(const std::string& text) {
    viewModel_->type(text);
    if (replace(isBlank_, base::trimmed(text).empty())) {
        emit blankChanged();
    }
}

void TextEditAdapter::show() {
    isBlank_ = base::trimmed(text()).empty();
    emit editChanged();
    emit blankChanged();
    emit changed();
}

}  // namespace hearthmark::ui
