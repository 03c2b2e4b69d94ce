// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "ctl/command.h"
#include "ctl/history_report.h"
#include "ctl/range.h"
#include "ctl/store_access.h"

namespace hearthmark::ctl {

namespace {

struct HistoryOptions {
    std::string range = "week";
    bool isJson = false;
};

// That the calendar knows.
std::optional<base::Date> firstOf(const std::vector<store::IntervalEntry>& intervals) {
    const base::LocalCalendar calendar;
    std::optional<base::Date> first;
    for (const store::IntervalEntry& entry : intervals) {
        const std::optional<base::Date> created = entry.interval.creationDate;
        if (created && (!first || *created < *first) && calendar.localTime(*created)) {
            first = created;
        }
    }
    return first;
}

HistoryReport reportOf(const std::string& text) {
    const base::Date now = base::SystemClock().now();
    store::StoreReader store = openStore();
    if (text == kAll) {
        auto intervals = store.intervals(base::Date(base::Seconds(-HUGE_VAL)),
                                         base::Date(base::Seconds(HUGE_VAL)));
        const RangeOfDates range = rangeOfAll(firstOf(intervals));
        return historyReport(range.days, range.starts, std::move(intervals), now);
    }
    const RangeOfDates range = rangeOfDates(text);
    return historyReport(range.days, range.starts,
                         store.intervals(range.starts.front(), range.starts.back()), now);
}

ExitStatus showHistory(const HistoryOptions& options) {
    const HistoryReport report = reportOf(options.range);
    std::cout << (options.isJson ? jsonText(report) : plainText(report));
    return ExitStatus::done;
}

}  // namespace

void addHistory(CLI::App& line, Command& chosen) {
    const auto options = std::make_shared<HistoryOptions>();
    CLI::App* command = line.add_subcommand("history", "Show the time spent in a range of days");
    command->add_option("RANGE", options->range, kRangeHelp)->capture_default_str();
    command->add_flag("--json", options->isJson, "Print JSON");
    command->callback([&chosen, options] { chosen = [options] { return showHistory(*options); }; });
}

}  // namespace hearthmark::ctl
