// SPDX-License-Identifier: MIT
#include "platform/session/call_rate.h"

#include <algorithm>

namespace hearthmark::platform {

bool CallRate::admits(const std::string& sender, base::Seconds now) {
    refill(all_, ofAll_, now);
    if (all_.calls < 1) {
        return false;
    }
    for (auto& [name, rest] : senders_) {
        refill(rest, ofSender_, now);
    }
    std::erase_if(senders_,
                  [this](const auto& entry) { return entry.second.calls >= ofSender_.atOnce; });
    Rest& rest = senders_.try_emplace(sender, Rest{ofSender_.atOnce, now}).first->second;
    if (rest.calls < 1) {
        return false;
    }
    --rest.calls;
    --all_.calls;
    return true;
}

void CallRate::refill(Rest& rest, Limit limit, base::Seconds now) {
    rest.calls = std::min(limit.atOnce, rest.calls + (now - rest.at).count() * limit.perSecond);
    rest.at = now;
}

}  // namespace hearthmark::platform
