// SPDX-License-Identifier: MIT
#include "ui/window/start_at_login_adapter.h"

#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

StartAtLoginAdapter::StartAtLoginAdapter(std::shared_ptr<services::StartAtLogin> startAtLogin)
    : startAtLogin_(std::move(startAtLogin)) {
    follow(startAtLogin_->state());
}

QString StartAtLoginAdapter::reason() const {
    return toQString(state().fault.empty() ? state().unavailableReason : state().fault);
}

void StartAtLoginAdapter::toggle() {
    startAtLogin_->toggle();
    if (!state().fault.empty()) {
        QMetaObject::invokeMethod(this, &StartAtLoginAdapter::failed, Qt::QueuedConnection);
    }
}

}  // namespace hearthmark::ui
