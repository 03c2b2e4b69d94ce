// SPDX-License-Identifier: MIT
#include "presentation/focus_announcement_view_model.h"

#include <utility>

#include "base/weakly.h"
#include "presentation/texts.h"
#include "store/interval.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

std::string textOf(const std::string& event, const store::Task& task, base::Seconds duration) {
    return event + ": " + orDash(task.name()) + ", " + orDash(store::formattedDuration(duration));
}

}  // namespace

FocusAnnouncementViewModel::FocusAnnouncementViewModel(
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider)
    : timeKeepingProvider_(std::move(timeKeepingProvider)) {}

void FocusAnnouncementViewModel::startObserving(
    const store::LiveDataProvidingFactoryProtocol& liveDataFactory) {
    intervalProvider_ =
        liveDataFactory.makeProvider<store::Interval>({.key = "creationDate", .ascending = true});
    intervalProvider_->startObserving();
    news(intervalProvider_->currentItems()->value());
    cancellable_ = intervalProvider_->currentItems()->subscribe(
        base::weakly(weak_from_this(), [](auto& self, const store::Intervals& intervals) {
            self.announce(self.news(intervals));
        }));
}

std::vector<std::string> FocusAnnouncementViewModel::news(const store::Intervals& intervals) {
    std::vector<std::string> lines;
    for (const store::Interval& interval : intervals) {
        if (!interval.id()) {
            continue;
        }
        const store::Task* task = interval.task();
        if (interval.isRunning()) {
            if (begun_.insert(*interval.id()).second && task != nullptr) {
                lines.push_back(textOf("Focus started", *task, interval.maxDuration()));
            }
        } else if (interval.isFinished() && begun_.erase(*interval.id()) > 0 && task != nullptr) {
            lines.push_back(textOf("Focus finished", *task, interval.duration()));
        }
    }
    return lines;
}

void FocusAnnouncementViewModel::announce(const std::vector<std::string>& lines) {
    if (lines.empty()) {
        return;
    }
    timer_.stop();
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    // Repeats, since what fires while the machine goes to sleep does nothing.
    timer_ = timeKeepingProvider_->makeTimer(kAnnouncementTime, services::Repeats::yes,
                                             base::weakly(weak_from_this(), [](auto& self) {
                                                 self.timer_.stop();
                                                 self.announcement_.setValue({});
                                             }));
    announcement_.setValue({});
    announcement_.setValue(std::move(text));
}

}  // namespace hearthmark::presentation
