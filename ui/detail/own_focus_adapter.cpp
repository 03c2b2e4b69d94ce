// SPDX-License-Identifier: MIT
#include "ui/detail/own_focus_adapter.h"

#include "ui/state/state_adapter.h"
#include "ui/text/duration_text.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using Reading = presentation::TypedLength::Reading;

}  // namespace

QString OwnFocusAdapter::understood() const {
    return typed_.reading == Reading::length
               ? tr("Enter starts %1").arg(durationText(typed_.length))
               : QString();
}

QString OwnFocusAdapter::fault() const {
    switch (typed_.reading) {
        case Reading::noLength:
            return tr("Not a length: try 25, 1:30:00 or 90 min.");
        case Reading::outOfRange:
            return tr("A focus takes from 1 second to 24 hours.");
        case Reading::blank:
        case Reading::length:
            break;
    }
    return {};
}

QStringList OwnFocusAdapter::offers() const {
    QStringList texts;
    for (const base::Seconds length : offers_) {
        texts.append(durationText(length));
    }
    return texts;
}

void OwnFocusAdapter::type(const QString& text) {
    if (replace(typed_, presentation::readLength(toUtf8(text)))) {
        emit typedChanged();
    }
}

void OwnFocusAdapter::startTyped() const {
    if (typed_.reading == Reading::length) {
        actions_.start(typed_.length);
    }
}

void OwnFocusAdapter::renewOffers() {
    if (replace(offers_, actions_.ownLengths())) {
        emit offersChanged();
    }
}

void OwnFocusAdapter::startOffered(int index) const {
    actions_.start(offers_.at(static_cast<std::size_t>(index)));
}

bool OwnFocusAdapter::startNewest() const {
    const std::vector<base::Seconds> lengths = actions_.ownLengths();
    if (!lengths.empty()) {
        actions_.start(lengths.front());
    }
    return !lengths.empty();
}

}  // namespace hearthmark::ui
