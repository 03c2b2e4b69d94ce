// SPDX-License-Identifier: MIT
#include "store/time_texts.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "store/interval.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

constexpr base::Seconds kTooLong{1e15};

void appendTwoDigits(std::string& text, std::int64_t unit) {
    text += ':';
    text += static_cast<char>('0' + unit / 10);
    text += static_cast<char>('0' + unit % 10);
}

}  // namespace

base::Seconds timeSpent(const Interval& interval, const base::Clock& clock) {
    return interval.isRunning() ? interval.totalDuration(clock.now()) : interval.duration();
}

base::Seconds timeSpent(const Task& task, const base::Clock& clock) {
    base::Seconds sum = task.intervalSummary()->settled->duration;
    for (const Interval* interval : task.intervalSummary()->running) {
        sum += timeSpent(*interval, clock);
    }
    return sum;
}

double progress(const Interval& interval, const base::Clock& clock) {
    const double share = timeSpent(interval, clock) / interval.maxDuration();
    return std::isfinite(share) ? std::clamp(share, 0.0, 1.0) : 0;
}

std::optional<std::string> formattedDuration(base::Seconds duration) {
    if (!(duration >= base::Seconds(0) && duration < kTooLong)) {
        return std::nullopt;
    }
    const auto seconds = static_cast<std::int64_t>(duration.count());
    const std::int64_t minutes = seconds / 60;
    const std::int64_t hours = minutes / 60;
    if (hours > 0) {
        std::string text = std::to_string(hours);
        appendTwoDigits(text, minutes % 60);
        appendTwoDigits(text, seconds % 60);
        return text;
    }
    if (minutes > 0) {
        std::string text = std::to_string(minutes);
        appendTwoDigits(text, seconds % 60);
        return text;
    }
    return std::to_string(seconds);
}

std::optional<std::string> formattedTimeSpent(const Interval& interval, const base::Clock& clock) {
    std::optional<std::string> text = formattedDuration(timeSpent(interval, clock));
    if (text) {
        if (const auto maximum = formattedDuration(interval.maxDuration())) {
            *text += '/';
            *text += *maximum;
        }
    }
    return text;
}

}  // namespace hearthmark::store
