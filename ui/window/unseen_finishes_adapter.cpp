// SPDX-License-Identifier: MIT
#include "ui/window/unseen_finishes_adapter.h"

#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

UnseenFinishesAdapter::UnseenFinishesAdapter(
    std::shared_ptr<services::UnseenFinishes> finishes,
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId)
    : finishes_(std::move(finishes)), mutableSelectedTaskId_(std::move(mutableSelectedTaskId)) {
    follow(*finishes_);
}

QString UnseenFinishesAdapter::text() const {
    if (!isPresented()) {
        return {};
    }
    const services::NotificationContent& latest = finishes_->value().back();
    const QString title = toOneLine(latest.title);
    const QString body = toOneLine(latest.body);
    const QLatin1String colon(": ");
    const QString sentence = canShow() ? body + colon + title : title + colon + body;
    const auto others = finishes_->value().size() - 1;
    return others == 0 ? sentence
                       : tr("%1 (and %2 before it)").arg(sentence, QString::number(others));
}

bool UnseenFinishesAdapter::canShow() const {
    return isPresented() && finishes_->value().back().taskId;
}

void UnseenFinishesAdapter::showTask() {
    if (!isPresented()) {
        return;
    }
    if (const auto taskId = finishes_->value().back().taskId) {
        mutableSelectedTaskId_->setValue(taskId);
    }
    dismiss();
}

}  // namespace hearthmark::ui
