// SPDX-License-Identifier: MIT
#include "presentation/weekday_means.h"

#include <array>
#include <cstddef>
#include <optional>

#include "presentation/texts.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

constexpr std::size_t kDaysOfWeek = 7;

}  // namespace

void WeekdayMeans::sumAnew(const store::Tasks& tasks, const HistoryRange& range,
                           const base::Calendar& calendar) {
    starts_.clear();
    if (range.unit != HistoryUnit::day && range.unit != HistoryUnit::week) {
        first_ = std::chrono::weekday(std::chrono::sys_days(range.first));
        starts_ = dayStarts(range, calendar);
    }
    settled_ = settledSums(tasks, starts_, std::nullopt).parts;
}

std::vector<HistoryViewState::WeekdayMean> WeekdayMeans::means(
    const std::vector<const store::Task*>& running, base::Date now,
    std::chrono::weekday firstDayOfWeek) const {
    if (settled_.empty()) {
        return {};
    }
    struct Days {
        base::Seconds spent{0};
        std::size_t count = 0;
    };
    std::array<Days, kDaysOfWeek> all{};
    const HistorySums runs = runningSums(running, starts_, std::nullopt, now);
    for (std::size_t day = 0; day < settled_.size(); ++day) {
        const base::Seconds spent = settled_[day] + runs.parts[day];
        if (spent != base::Seconds(0)) {
            Days& days = all[(first_.c_encoding() + day) % kDaysOfWeek];
            days.spent += spent;
            ++days.count;
        }
    }
    std::vector<HistoryViewState::WeekdayMean> means;
    for (std::size_t place = 0; place < kDaysOfWeek; ++place) {
        const auto weekday = firstDayOfWeek + std::chrono::days(place);
        const Days& days = all[weekday.c_encoding()];
        means.push_back({.weekday = weekday,
                         .timeSpent = days.count == 0
                                          ? orDash({})
                                          : orDash(store::formattedDuration(
                                                days.spent / static_cast<double>(days.count)))});
    }
    return means;
}

}  // namespace hearthmark::presentation
