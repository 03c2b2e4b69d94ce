// SPDX-License-Identifier: MIT
#include "ctl/history_report.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "ctl/json.h"
#include "ctl/status_text.h"
#include "export/field_texts.h"
#include "presentation/texts.h"
#include "presentation/time_bars.h"
#include "store/time_texts.h"

namespace hearthmark::ctl {

namespace {

using store::IntervalEntry;
using TaskTime = HistoryReport::TaskTime;

constexpr std::size_t kTimeWidth = 11;
constexpr std::size_t kFocusesWidth = 7;

bool isRunning(const IntervalEntry& entry) {
    const auto state = store::intervalState(entry.interval);
    return state && state->isRunning();
}

// Sums are not the same in another order, and are cut to whole seconds: first what does not run, by
// tasks in the order in which they were made, each newest first.
bool isSummedBefore(const IntervalEntry& a, const IntervalEntry& b) {
    if (isRunning(a) != isRunning(b)) {
        return isRunning(b);
    }
    return a.task.key != b.task.key ? a.task.key < b.task.key : store::isNewer(a, b);
}

double forOrder(base::Seconds spent) {
    return std::isfinite(spent.count()) ? spent.count() : -1;
}

std::string rightAligned(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string lineOf(base::Seconds spent, std::size_t focuses, const std::string& name) {
    const std::string time = presentation::orDash(store::formattedDuration(spent));
    return rightAligned(time, kTimeWidth) + rightAligned(std::to_string(focuses), kFocusesWidth) +
           "  " + name + '\n';
}

std::string dayText(std::chrono::year_month_day day) {
    std::string text;
    exporting::appendDay(text, day);
    return text;
}

std::chrono::year_month_day lastDay(const presentation::HistoryRange& range) {
    return std::chrono::sys_days(shifted(range, 1).first) - std::chrono::days(1);
}

}  // namespace

HistoryReport historyReport(const presentation::HistoryRange& range, std::vector<base::Date> starts,
                            std::vector<IntervalEntry> intervals, base::Date now) {
    HistoryReport report{.range = range, .starts = std::move(starts), .parts = {}, .tasks = {}};
    const std::size_t count = report.starts.empty() ? 0 : report.starts.size() - 1;
    report.parts.resize(count);
    std::vector<base::Seconds> runningParts(count);
    std::ranges::sort(intervals, isSummedBefore);
    std::unordered_map<objectstore::RowKey, std::size_t> places;
    for (const IntervalEntry& entry : intervals) {
        const auto part = presentation::partAt(report.starts, entry.interval.creationDate);
        if (!part) {
            continue;
        }
        const bool runs = isRunning(entry);
        const base::Seconds spent = store::totalDuration(entry.interval.duration,
                                                         store::intervalState(entry.interval), now);
        (runs ? runningParts : report.parts)[*part] += spent;
        const auto [place, isNew] = places.emplace(entry.task.key, report.tasks.size());
        if (isNew) {
            report.tasks.push_back({.id = entry.task.id, .name = entry.task.name});
        }
        TaskTime& time = report.tasks[place->second];
        time.spent += spent;
        ++time.focuses;
        time.isRunning |= runs;
        ++report.focuses;
    }
    std::ranges::transform(report.parts, runningParts, report.parts.begin(), std::plus());
    report.total = std::accumulate(report.parts.begin(), report.parts.end(), base::Seconds(0));
    std::ranges::stable_sort(report.tasks, std::ranges::greater(),
                             [](const TaskTime& time) { return forOrder(time.spent); });
    return report;
}

std::string plainText(const HistoryReport& report) {
    const std::string first = dayText(report.range.first);
    const std::string last = dayText(lastDay(report.range));
    std::string text = first == last ? first + '\n' : first + " to " + last + '\n';
    for (const TaskTime& time : report.tasks) {
        text += lineOf(
            time.spent, time.focuses,
            onOneLine(presentation::orDash(time.name)) + (time.isRunning ? " (running)" : ""));
    }
    return text + lineOf(report.total, report.focuses, "in all");
}

std::string jsonText(const HistoryReport& report) {
    Json parts = Json::array();
    for (std::size_t part = 0; part < report.parts.size(); ++part) {
        parts.push_back({{"start", jsonOf(report.starts[part])},
                         {"seconds", wholeSeconds(report.parts[part])}});
    }
    Json tasks = Json::array();
    for (const TaskTime& time : report.tasks) {
        tasks.push_back({{"id", jsonOf(time.id)},
                         {"name", jsonOf(time.name)},
                         {"seconds", wholeSeconds(time.spent)},
                         {"focuses", time.focuses},
                         {"running", time.isRunning}});
    }
    const Json made{{"first", dayText(report.range.first)},
                    {"last", dayText(lastDay(report.range))},
                    {"seconds", wholeSeconds(report.total)},
                    {"focuses", report.focuses},
                    {"parts", std::move(parts)},
                    {"tasks", std::move(tasks)}};
    return made.dump() + '\n';
}

}  // namespace hearthmark::ctl
