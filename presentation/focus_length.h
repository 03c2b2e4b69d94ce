// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "base/date.h"
#include "services/focus.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

using services::kLongestFocus;
using services::kShortestFocus;

// What somebody typed as the length of a focus.
struct TypedLength {
    enum class Reading { blank, length, noLength, outOfRange };

    bool operator==(const TypedLength&) const = default;

    Reading reading = Reading::blank;
    // Whole seconds; of a length, and of what is out of the range.
    base::Seconds length{0};
};

// A bare number is minutes. Parts joined by ":" are minutes and seconds, or hours before them, all
// after the first with two digits, as the program writes them. Else numbers with their units, the
// largest first: "1 h 30 min"; one alone may have a fraction, after a point or a comma.
TypedLength readLength(const std::string& text);

// The lengths that the newest intervals of these tasks aimed at, newest first and each once, but
// for those of the two start buttons and those that nobody would type. Looks at as many intervals
// as it takes, which may be all of them.
std::vector<base::Seconds> newestOwnLengths(const store::Tasks& tasks);

}  // namespace hearthmark::presentation
