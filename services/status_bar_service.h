// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "base/clock.h"
#include "livedata/core_data_live_provider.h"
#include "livedata/subscription.h"
#include "services/home_view_factory_protocol.h"
#include "services/owned_timer.h"
#include "services/ports/application_windows.h"
#include "services/ports/status_bar.h"
#include "services/ports/time_keeping.h"
#include "services/status_menu_service.h"
#include "store/live_data.h"

namespace hearthmark::services {

// Shows the time of the latest running interval in the panel, once a second, and the program's name
// while none runs, over the menu of what can be done at once. Main thread.
class StatusBarService final : public std::enable_shared_from_this<StatusBarService> {
 public:
    using IntervalsProvider = livedata::CoreDataLiveProvider<store::Interval>;

    // What the desktop gives for it.
    struct Ports {
        std::shared_ptr<StatusBar> statusBar;
        std::shared_ptr<ApplicationWindows> applicationWindows;
    };

    // The provider is observing. The item has no use of the home view so far.
    StatusBarService(std::shared_ptr<HomeViewFactoryProtocol> homeViewFactory,
                     std::shared_ptr<IntervalsProvider> intervalsProvider,
                     std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
                     std::shared_ptr<const base::Clock> clock,
                     std::unique_ptr<StatusMenuService> menu, Ports ports);

    // Makes the item. Called once, at launch. Where the desktop has no place for it, nothing is
    // shown.
    void setUp();

 private:
    void handle(const store::Intervals& intervals);
    void startTimer(const std::shared_ptr<store::Interval>& interval);
    void show(const store::Interval& interval);
    void statusItemButtonAction() const;

    // Held and not used.
    std::shared_ptr<HomeViewFactoryProtocol> homeViewFactory_;
    std::shared_ptr<IntervalsProvider> intervalsProvider_;
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<const base::Clock> clock_;
    std::unique_ptr<StatusMenuService> menu_;
    Ports ports_;
    // The interval that is shown, or was last; it may have been deleted since.
    std::shared_ptr<store::Interval> latestRunningInterval_;
    std::unique_ptr<StatusItem> statusItem_;
    // Present only while an interval is shown.
    OwnedTimer timer_;
    livedata::Subscription intervalsObserver_;
};

}  // namespace hearthmark::services
