// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "store/time_texts.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

// Empty where the duration has no text.
inline QString durationText(base::Seconds duration) {
    return toQString(store::formattedDuration(duration).value_or(""));
}

}  // namespace hearthmark::ui
