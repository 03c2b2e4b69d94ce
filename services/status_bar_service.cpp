// SPDX-License-Identifier: MIT
#include "services/status_bar_service.h"

#include <utility>

#include "base/weakly.h"
#include "store/interval.h"
#include "store/newest_first.h"
#include "store/time_texts.h"

namespace hearthmark::services {

namespace {

constexpr base::Seconds kTick{1};
constexpr auto kIdleTitle = "Hearthmark!";

}  // namespace

StatusBarService::StatusBarService(std::shared_ptr<HomeViewFactoryProtocol> homeViewFactory,
                                   std::shared_ptr<IntervalsProvider> intervalsProvider,
                                   std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider,
                                   std::shared_ptr<const base::Clock> clock,
                                   std::unique_ptr<StatusMenuService> menu, Ports ports)
    : homeViewFactory_(std::move(homeViewFactory)),
      intervalsProvider_(std::move(intervalsProvider)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)),
      menu_(std::move(menu)),
      ports_(std::move(ports)) {}

void StatusBarService::setUp() {
    statusItem_ = ports_.statusBar->makeStatusItem(kVariableStatusItemLength);
    StatusItemButton* const button = statusItem_->button();
    if (button == nullptr) {
        statusItem_.reset();  // told to nobody: the window shows the time as well
        return;
    }
    button->setTitle(kIdleTitle);
    button->setAction(base::weakly(weak_from_this(), &StatusBarService::statusItemButtonAction));
    button->setMenu([this] { return menu_->entries(); });
    menu_->startObserving([button] { button->menuChanged(); });
    // The subscription tells of the present set at once.
    intervalsObserver_ = intervalsProvider_->currentItems()->subscribe(
        base::weakly(weak_from_this(), &StatusBarService::handle));
}

void StatusBarService::handle(const store::Intervals& intervals) {
    store::Interval* const latest =
        store::newestRunning(intervals, [](const store::Interval&) { return true; });
    if (latest == nullptr) {
        statusItem_->button()->setTitle(kIdleTitle);
        statusItem_->button()->setProgress({});
        // The interval stays remembered: while the store is being written anew the set may be empty
        // for a moment, and the same interval is then no new one.
        timer_.stop();
    } else if (latest != latestRunningInterval_.get()) {
        latestRunningInterval_ =
            std::static_pointer_cast<store::Interval>(latest->shared_from_this());
        timer_.stop();
        startTimer(latestRunningInterval_);
    }
}

void StatusBarService::startTimer(const std::shared_ptr<store::Interval>& interval) {
    timer_ = timeKeepingProvider_->makeTimer(
        kTick, Repeats::yes,
        base::weakly(weak_from_this(), [interval](auto& self) { self.show(*interval); }));
}

void StatusBarService::show(const store::Interval& interval) {
    StatusItemButton& button = *statusItem_->button();
    button.setTitle(store::formattedTimeSpent(interval, *clock_).value_or("-"));
    const store::Task* task = interval.task();
    button.setProgress(
        StatusItemProgress{.taskName = task != nullptr ? task->name().value_or("-") : "-",
                           .spent = store::timeSpent(interval, *clock_),
                           .maximum = interval.maxDuration()});
}

void StatusBarService::statusItemButtonAction() const {
    for (const auto& window : ports_.applicationWindows->windows()) {
        window->orderFrontRegardless();
        window->makeKeyWindow();
    }
}

}  // namespace hearthmark::services
