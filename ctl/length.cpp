// SPDX-License-Identifier: MIT
#include "ctl/length.h"

#include "ctl/command.h"
#include "presentation/focus_length.h"

namespace hearthmark::ctl {

base::Seconds lengthFrom(const std::string& text) {
    using Reading = presentation::TypedLength::Reading;
    const presentation::TypedLength typed = presentation::readLength(text);
    switch (typed.reading) {
        case Reading::length:
            return typed.length;
        case Reading::outOfRange:
            throw UsageError("A focus lasts from a second to 24 hours, and not \"" + text + "\".");
        case Reading::blank:
        case Reading::noLength:
            break;
    }
    throw UsageError("\"" + text +
                     "\" is no length. These are: 25, 25m, 1h30m, 90 min, 25:00, 1:05:00.");
}

}  // namespace hearthmark::ctl
