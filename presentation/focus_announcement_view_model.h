// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "livedata/published.h"
#include "livedata/subscription.h"
#include "services/owned_timer.h"
#include "services/ports/time_keeping.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

// How long an announcement stands.
constexpr base::Seconds kAnnouncementTime{4};

// Says that a focus has started or finished, for those who do not see it. Does something only when
// the intervals change, never at a tick. Main thread.
class FocusAnnouncementViewModel final
    : public std::enable_shared_from_this<FocusAnnouncementViewModel> {
 public:
    // To be held by a shared pointer: its closures hold it weakly.
    explicit FocusAnnouncementViewModel(
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider);

    // A line for each focus; empty while there is nothing to say, and for a moment between two
    // announcements, so that each of them is seen to appear.
    livedata::Published<std::string>& announcement() { return announcement_; }

    // Called once. What runs by then is no news.
    void startObserving(const store::LiveDataProvidingFactoryProtocol& liveDataFactory);

 private:
    // A text for each interval that differs from what was seen before.
    std::vector<std::string> news(const store::Intervals& intervals);
    void announce(const std::vector<std::string>& lines);

    livedata::Published<std::string> announcement_;
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::unique_ptr<store::LiveDataProvider<store::Interval>> intervalProvider_;
    // Seen running and not seen finished since. Keeps what was paused or deleted, so that a resume
    // or an undo is no start.
    std::unordered_set<base::Uuid> begun_;
    // Present only while something is announced.
    services::OwnedTimer timer_;
    livedata::Subscription cancellable_;
};

}  // namespace hearthmark::presentation
