// SPDX-License-Identifier: MIT
#include "presentation/focus_overview_view_model.h"

#include <algorithm>
#include <utility>

#include "base/weakly.h"
#include "presentation/texts.h"
#include "store/interval.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kCalendarTick{60};
// A few seconds are no full bar, even where they are all there is.
constexpr base::Seconds kLeastScale{3600};

}  // namespace

FocusOverviewViewModel::FocusOverviewViewModel(
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<const base::Clock> clock, std::shared_ptr<const base::Calendar> calendar,
    std::optional<base::Uuid> taskId)
    : liveDataFactory_(std::move(liveDataFactory)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      clock_(std::move(clock)),
      calendar_(std::move(calendar)),
      taskId_(taskId) {}

void FocusOverviewViewModel::startObserving() {
    const auto weak = weak_from_this();
    liveTasks_ = std::make_shared<LiveTasks>(timeKeepingProvider_,
                                             base::weakly(weak, &FocusOverviewViewModel::follow),
                                             base::weakly(weak, &FocusOverviewViewModel::rebuild));
    renewDays();
    liveTasks_->startObserving(*liveDataFactory_);
    timer_ = timeKeepingProvider_->makeTimer(kCalendarTick, services::Repeats::yes,
                                             base::weakly(weak, [](auto& self) {
                                                 self.renewDays();
                                                 self.follow(self.liveTasks_->tasks());
                                             }));
}

void FocusOverviewViewModel::renewDays() {
    starts_ = calendar_->dayStarts(clock_->now(), kOverviewDays);
    settledSpent_.clear();
}

void FocusOverviewViewModel::add(const store::Interval& interval,
                                 std::vector<base::Seconds>& spent) const {
    const auto& created = interval.creationDate();
    if (created && *created >= starts_.front() && *created < starts_.back()) {
        const auto next = std::ranges::upper_bound(starts_, *created, std::ranges::less());
        spent[static_cast<std::size_t>(next - starts_.begin()) - 1] +=
            interval.totalDuration(clock_->now());
    }
}

void FocusOverviewViewModel::follow(const store::Tasks& tasks) {
    std::vector<const store::Task*> counted;
    running_.clear();
    for (const store::Task& task : tasks) {
        if (!taskId_ || task.id() == taskId_) {
            counted.push_back(&task);
            if (task.isRunning()) {
                running_.push_back(&task);
            }
        }
    }
    tasks_ = tasks;
    if ((versions_.renew(counted) || settledSpent_.empty()) && !starts_.empty()) {
        settledSpent_.assign(starts_.size() - 1, base::Seconds(0));
        for (const store::Task* task : counted) {
            for (const store::Interval* interval : task->intervalSummary()->settled->intervals) {
                if (interval->creationDate() && *interval->creationDate() < starts_.front()) {
                    break;  // and those that come after it
                }
                add(*interval, settledSpent_);
            }
        }
    }
    rebuild();
}

void FocusOverviewViewModel::rebuild() {
    if (starts_.empty()) {
        viewState_.setValue(FocusOverviewViewState::View{.today = orDash({}), .days = {}});
        return;
    }
    std::vector<base::Seconds> spent = settledSpent_;
    for (const store::Task* task : running_) {
        for (const store::Interval* interval : task->intervalSummary()->running) {
            add(*interval, spent);
        }
    }
    // What has no text, since a file may hold any number, has no bar either.
    base::Seconds longest = kLeastScale;
    for (const base::Seconds each : spent) {
        if (store::formattedDuration(each)) {
            longest = std::max(longest, each);
        }
    }
    FocusOverviewViewState::View view;
    for (std::size_t day = 0; day < spent.size(); ++day) {
        const auto text = store::formattedDuration(spent[day]);
        view.days.push_back({.start = starts_[day],
                             .timeSpent = orDash(text),
                             .share = text ? spent[day] / longest : 0});
    }
    view.today = view.days.back().timeSpent;
    viewState_.setValue(std::move(view));
}

}  // namespace hearthmark::presentation
