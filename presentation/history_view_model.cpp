// SPDX-License-Identifier: MIT
#include "presentation/history_view_model.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <utility>

#include "base/folding.h"
#include "base/weakly.h"
#include "presentation/texts.h"
#include "store/time_texts.h"

namespace hearthmark::presentation {

namespace {

constexpr base::Seconds kCalendarTick{60};
constexpr int kPermille = 1000;

using Column = HistoryViewState::Column;

std::optional<int> permille(base::Seconds spent, base::Seconds total) {
    const double share = spent / total;
    return total > base::Seconds(0) && share >= 0 && share <= 1
               ? std::optional(static_cast<int>(std::lround(share * kPermille)))
               : std::nullopt;
}

}  // namespace

void HistoryViewModel::startObserving() {
    const auto weak = weak_from_this();
    liveTasks_ = std::make_shared<LiveTasks>(parts_.timeKeepingProvider,
                                             base::weakly(weak, &HistoryViewModel::follow),
                                             base::weakly(weak, &HistoryViewModel::rebuild));
    liveTasks_->startObserving(*parts_.liveDataFactory);
    timer_ = parts_.timeKeepingProvider->makeTimer(kCalendarTick, services::Repeats::yes,
                                                   base::weakly(weak, [](auto& self) {
                                                       self.renewRange();
                                                       self.rebuild();
                                                   }));
}

void HistoryViewModel::setUnit(HistoryUnit unit) {
    if (unit == range_.unit) {
        return;
    }
    auto day = parts_.choice->day;
    if (chosen_) {
        day = partOf(range_, *chosen_).first;
    }
    parts_.choice->unit = unit;
    show(day);
}

void HistoryViewModel::go(int count) {
    const HistoryRange next = shifted(range_, count);
    const bool isWithin = count < 0 ? canGoBack() : today_ && next.first <= *today_;
    if (isWithin) {
        show(next.first);
    }
}

void HistoryViewModel::goToToday() {
    show(std::nullopt);
}

void HistoryViewModel::choose(std::size_t part) {
    if (part + 1 < starts_.size()) {
        chosen_ = chosen_ == part ? std::nullopt : ChosenPart(part);
        isSummed_ = false;
        rebuild();
    }
}

bool HistoryViewModel::takeChoiceBack() {
    const bool wasChosen = chosen_.has_value();
    if (wasChosen) {
        choose(*chosen_);
    }
    return wasChosen;
}

void HistoryViewModel::sortBy(Column column) {
    HistoryChoice& choice = *parts_.choice;
    choice.isAscending = choice.sortedBy == column ? !choice.isAscending : column == Column::task;
    choice.sortedBy = column;
    rebuild();
}

void HistoryViewModel::show(std::optional<std::chrono::year_month_day> day) {
    parts_.choice->day = day;
    chosen_.reset();
    renewRange();
    rebuild();
}

bool HistoryViewModel::canGoBack() const {
    return range_.unit != HistoryUnit::all && earliest_ && *earliest_ < range_.first;
}

void HistoryViewModel::renewRange() {
    HistoryChoice& choice = *parts_.choice;
    today_ = parts_.calendar->localDay(parts_.clock->now());
    const auto first = firstFocus(tasks_, *parts_.calendar);
    earliest_ = first ? parts_.calendar->localDay(*first) : std::nullopt;
    const auto before = std::exchange(starts_, {});
    if (today_) {
        const HistoryRange current = rangeAround(choice.unit, *today_, parts_.firstDayOfWeek);
        range_ = rangeAround(choice.unit, choice.day.value_or(*today_), parts_.firstDayOfWeek);
        if (choice.unit == HistoryUnit::all) {
            const auto earliest = std::min(earliest_.value_or(*today_), *today_);
            range_ = rangeOfYears(earliest.year(), today_->year());
        } else if (range_ == current) {
            choice.day.reset();
        }
        starts_ = partStarts(range_, *parts_.calendar);
    }
    if (starts_ != before) {
        chosen_.reset();
        isSummed_ = false;
    }
}

void HistoryViewModel::follow(const store::Tasks& tasks) {
    std::vector<const store::Task*> all;
    running_.clear();
    for (const store::Task& task : tasks) {
        all.push_back(&task);
        if (task.isRunning()) {
            running_.push_back(&task);
        }
    }
    tasks_ = tasks;
    renewRange();
    if (versions_.renew(all)) {
        isSummed_ = false;
    }
    rebuild();
}

void HistoryViewModel::sumAnew() {
    const HistorySums settled = settledSums(tasks_, starts_, chosen_);
    settledParts_ = settled.parts;
    weekdayMeans_.sumAnew(tasks_, chosen_ ? partOf(range_, *chosen_) : range_, *parts_.calendar);
    entries_.clear();
    for (const auto& time : settled.tasks) {
        entries_.push_back({.settled = time});
    }
    // Those of which nothing but what runs is in the range.
    for (const auto& time : runningSums(running_, starts_, chosen_, parts_.clock->now()).tasks) {
        const auto isSame = [&time](const Entry& entry) { return entry.settled.task == time.task; };
        if (std::ranges::none_of(entries_, isSame)) {
            entries_.push_back({.settled = {.task = time.task}});
        }
    }
    order_.resize(entries_.size());
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    isSummed_ = true;
}

void HistoryViewModel::renewRows(const HistorySums& running, base::Seconds total) {
    for (Entry& entry : entries_) {
        base::Seconds spent = entry.settled.spent;
        std::size_t focuses = entry.settled.focuses;
        bool isRunning = false;
        for (const auto& time : running.tasks) {
            if (time.task == entry.settled.task) {
                spent += time.spent;
                focuses += time.focuses;
                isRunning = true;
            }
        }
        const auto share = permille(spent, total);
        if (!entry.row || entry.spent != spent || entry.row->permille != share) {
            const store::Task& task = *entry.settled.task;
            entry.spent = spent;
            entry.row = std::make_shared<const HistoryViewState::Row>(
                HistoryViewState::Row{.taskId = task.id(),
                                      .taskName = orDash(task.name()),
                                      .timeSpent = orDash(store::formattedDuration(spent)),
                                      .permille = share,
                                      .focuses = focuses,
                                      .isRunning = isRunning});
        }
    }
}

void HistoryViewModel::sortRows() {
    const HistoryChoice& choice = *parts_.choice;
    const auto sort = [this, &choice](const auto& key) {
        const auto isBefore = [&](std::size_t a, std::size_t b) {
            const auto& keyA = key(entries_[a]);
            const auto& keyB = key(entries_[b]);
            return keyA == keyB ? a < b : choice.isAscending ? keyA < keyB : keyB < keyA;
        };
        // A tick leaves most in their order.
        if (!std::ranges::is_sorted(order_, isBefore)) {
            std::ranges::sort(order_, isBefore);
        }
    };
    switch (choice.sortedBy) {
        case Column::task:
            for (Entry& entry : entries_) {
                if (entry.foldedName.empty()) {
                    entry.foldedName = base::folded(entry.row->taskName);
                }
            }
            return sort([](const Entry& entry) -> const std::string& { return entry.foldedName; });
        case Column::timeSpent:
        case Column::share:
            // What has no text is less than nothing, whatever a file holds.
            return sort([](const Entry& entry) {
                return std::isfinite(entry.spent.count()) ? entry.spent.count() : -1;
            });
        case Column::focuses:
            return sort([](const Entry& entry) { return entry.row->focuses; });
    }
}

void HistoryViewModel::rebuild() {
    if (!isSummed_) {
        sumAnew();
    }
    const base::Date now = parts_.clock->now();
    const HistorySums running = runningSums(running_, starts_, chosen_, now);
    std::vector<base::Seconds> spent = settledParts_;
    std::ranges::transform(spent, running.parts, spent.begin(), std::plus());
    const base::Seconds total =
        chosen_ ? spent[*chosen_] : std::accumulate(spent.begin(), spent.end(), base::Seconds(0));
    renewRows(running, total);
    sortRows();
    const HistoryChoice& choice = *parts_.choice;
    const bool holdsToday = today_ && shifted(range_, 1).first > *today_;
    HistoryViewState::View view{
        .range = range_,
        .canGoBack = canGoBack(),
        .canGoForward = today_ && !holdsToday,
        .holdsToday = holdsToday && range_.first <= *today_,
        .current = partAt(starts_, now),
        .chosen = chosen_,
        .total = starts_.empty() ? orDash({}) : orDash(store::formattedDuration(total)),
        .sortedBy = choice.sortedBy,
        .isAscending = choice.isAscending};
    if (!starts_.empty()) {
        view.span = chosen_ ? HistoryViewState::Span{starts_[*chosen_], starts_[*chosen_ + 1]}
                            : HistoryViewState::Span{starts_.front(), starts_.back()};
        view.weekdayMeans = weekdayMeans_.means(running_, now, parts_.firstDayOfWeek);
    }
    const std::vector<TimeBar> bars = timeBars(spent);
    for (std::size_t part = 0; part < bars.size(); ++part) {
        if (const auto start = parts_.calendar->localTime(starts_[part])) {
            view.bars.push_back({.start = *start, .bar = bars[part]});
        }
    }
    for (const std::size_t place : order_) {
        view.rows.push_back(entries_[place].row);
    }
    viewState_.setValue(std::move(view));
}

}  // namespace hearthmark::presentation
