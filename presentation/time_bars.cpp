// SPDX-License-Identifier: MIT
#include "presentation/time_bars.h"

#include <algorithm>

#include "presentation/texts.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

// A few seconds are no full bar, even where they are all there is.
constexpr base::Seconds kLeastScale{3600};

}  // namespace

std::optional<std::size_t> partAt(const std::vector<base::Date>& starts,
                                  const std::optional<base::Date>& moment) {
    if (!moment || starts.empty() || !(*moment >= starts.front() && *moment < starts.back())) {
        return std::nullopt;
    }
    const auto next = std::ranges::upper_bound(starts, *moment, std::ranges::less());
    return static_cast<std::size_t>(next - starts.begin()) - 1;
}

std::vector<TimeBar> timeBars(const std::vector<base::Seconds>& spent) {
    base::Seconds longest = kLeastScale;
    for (const base::Seconds each : spent) {
        if (store::formattedDuration(each)) {
            longest = std::max(longest, each);
        }
    }
    std::vector<TimeBar> bars;
    bars.reserve(spent.size());
    for (const base::Seconds each : spent) {
        const auto text = store::formattedDuration(each);
        bars.push_back({.timeSpent = orDash(text), .share = text ? each / longest : 0});
    }
    return bars;
}

}  // namespace hearthmark::presentation
