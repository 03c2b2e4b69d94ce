// SPDX-License-Identifier: MIT
#include "platform/session/call_rate.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace hearthmark::platform {

base::Seconds steadyNow() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

bool CallLimit::isFree(base::Seconds now) {
    refill(now);
    return left_ >= 1;
}

bool CallLimit::isForgotten(base::Seconds now) {
    refill(now);
    return left_ >= bounds_.atOnce;
}

void CallLimit::refill(base::Seconds now) {
    left_ = std::min(bounds_.atOnce, left_ + (now - at_).count() * bounds_.perSecond);
    at_ = now;
}

bool CallRate::admits(const std::string& sender, base::Seconds now) {
    if (!all_.isFree(now)) {
        return false;
    }
    for (auto entry = senders_.begin(); entry != senders_.end();) {
        entry = entry->second.isForgotten(now) ? senders_.erase(entry) : std::next(entry);
    }
    CallLimit& limit = senders_.try_emplace(sender, ofSender_, now).first->second;
    if (!limit.isFree(now)) {
        return false;
    }
    limit.count();
    all_.count();
    return true;
}

}  // namespace hearthmark::platform
