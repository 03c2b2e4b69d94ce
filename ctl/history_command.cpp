// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

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

ExitStatus showHistory(const HistoryOptions& options) {
    const RangeOfDates range = rangeOfDates(options.range);
    const HistoryReport report = historyReport(
        range.days, range.starts, openStore().intervals(range.starts.front(), range.starts.back()),
        base::SystemClock().now());
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
