// SPDX-License-Identifier: MIT
#include "presentation/focus_overview_view_model.h"

#include <utility>

#include "base/weakly.h"
#include "presentation/texts.h"
#include "presentation/time_bars.h"
#include "store/interval.h"

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kCalendarTick{60};
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
    if (const auto day = partAt(starts_, interval.creationDate())) {
        spent[*day] += interval.totalDuration(clock_->now());
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
    FocusOverviewViewState::View view;
    for (const TimeBar& bar : timeBars(spent)) {
        view.days.push_back(
            {.start = starts_[view.days.size()], .timeSpent = bar.timeSpent, .share = bar.share});
    }
    view.today = view.days.back().timeSpent;
    viewState_.setValue(std::move(view));
}

}  // namespace hearthmark::presentation
