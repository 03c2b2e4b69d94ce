// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/clock.h"
#include "ctl/command.h"
#include "ctl/range.h"
#include "ctl/status_text.h"
#include "ctl/store_access.h"
#include "export/everything_document.h"
#include "export/file_export.h"
#include "export/interval_calendar.h"
#include "export/interval_rows.h"
#include "export/interval_table.h"
#include "presentation/texts.h"

namespace hearthmark::ctl {

namespace {

using exporting::TextParts;

struct ExportOptions {
    // A range, a file, or both in this order.
    std::vector<std::string> arguments;
    std::string format;
    bool isJson = false;
};

struct Destination {
    std::optional<RangeOfDates> range;
    std::string file;
};

// What is no range is a file.
Destination destinationOf(const ExportOptions& options) {
    Destination destination;
    std::vector<std::string> rest = options.arguments;
    if (rest.size() == 2 || (rest.size() == 1 && isRange(rest.front()))) {
        destination.range = rangeOfDates(rest.front());
        rest.erase(rest.begin());
    }
    destination.file = rest.empty() ? "" : rest.front();
    return destination;
}

void print(TextParts& text) {
    constexpr std::size_t kBlock = 65'536;
    std::string block;
    for (bool isMore = true; isMore && std::cout;) {
        isMore = text.appendNext(block);
        if (block.size() >= kBlock || !isMore) {
            std::cout << block;
            block.clear();
        }
    }
}

void write(TextParts& text, const std::string& file) {
    if (file.empty() || file == "-") {
        print(text);
        return;
    }
    const exporting::FileExport written = exporting::writeFile(file, text, {});
    if (written.outcome != exporting::FileExport::Outcome::written) {
        throw CommandError(written.reason);
    }
}

void tellLeftOut(const std::string& what) {
    std::cerr << "hearthmarkctl: Left out, since the form cannot say it: " << what << '\n';
}

void writeEverything(const std::string& file) {
    exporting::EverythingDocument document(openStore().everything());
    write(document, file);
    for (const auto& name : document.leftOut()) {
        tellLeftOut("the task " + onOneLine(presentation::orDash(name)));
    }
}

ExitStatus runExport(const ExportOptions& options) {
    const Destination destination = destinationOf(options);
    if (options.format == "json") {
        if (destination.range) {
            throw UsageError("The JSON form has everything; it takes no range.");
        }
        writeEverything(destination.file);
        return ExitStatus::done;
    }
    constexpr base::Date kEndless{base::Seconds(HUGE_VAL)};
    const base::Date from =
        destination.range ? destination.range->starts.front() : base::Date(base::Seconds(-HUGE_VAL));
    const base::Date to = destination.range ? destination.range->starts.back() : kEndless;
    auto rows = exporting::intervalRows(openStore().intervals(from, to), base::SystemClock().now());
    if (options.format == "csv") {
        exporting::IntervalTable table(std::move(rows), std::make_shared<base::LocalCalendar>());
        write(table, destination.file);
        return ExitStatus::done;
    }
    exporting::IntervalCalendar calendar(std::move(rows));
    write(calendar, destination.file);
    if (calendar.leftOut() > 0) {
        tellLeftOut(std::to_string(calendar.leftOut()) + " intervals");
    }
    return ExitStatus::done;
}

}  // namespace

void addExport(CLI::App& line, Command& chosen) {
    const auto options = std::make_shared<ExportOptions>();
    CLI::App* command = line.add_subcommand("export", "Write what the window exports");
    command->add_option("RANGE] [FILE", options->arguments, kRangeHelp)->expected(0, 2);
    CLI::Option* format = command->add_option("--format", options->format, "csv, ics or json")
                              ->check(CLI::IsMember({"csv", "ics", "json"}));
    command->add_flag("--json", options->isJson, "As --format json")->excludes(format);
    command->callback([&chosen, options] {
        options->format = options->isJson ? "json" : options->format;
        if (options->format.empty()) {
            throw CLI::RequiredError("--format");
        }
        chosen = [options] { return runExport(*options); };
    });
}

}  // namespace hearthmark::ctl
