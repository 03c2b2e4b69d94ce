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
    std::string range;
    std::string file;
    std::string format;
    bool isJson = false;
};

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

// A name alone may as well be a range that was mistyped, and be written over; "./name" is none.
bool isPath(const std::string& text) {
    return text == "-" || text.find_first_of("./") != std::string::npos;
}

ExitStatus runExport(ExportOptions options) {
    // What stands alone and looks like a path is a file.
    if (options.file.empty() && !isRange(options.range) && isPath(options.range)) {
        std::swap(options.range, options.file);
    }
    if (options.range == kAll) {
        options.range.clear();
    }
    if (options.format == "json") {
        if (!options.range.empty()) {
            throw UsageError("The JSON form has everything; it takes no range.");
        }
        writeEverything(options.file);
        return ExitStatus::done;
    }
    base::Date from{base::Seconds(-HUGE_VAL)};
    base::Date to{base::Seconds(HUGE_VAL)};
    if (!options.range.empty()) {
        const RangeOfDates range = rangeOfDates(options.range);
        from = range.starts.front();
        to = range.starts.back();
    }
    auto rows = exporting::intervalRows(openStore().intervals(from, to), base::SystemClock().now());
    if (options.format == "csv") {
        exporting::IntervalTable table(std::move(rows), std::make_shared<base::LocalCalendar>());
        write(table, options.file);
        return ExitStatus::done;
    }
    exporting::IntervalCalendar calendar(std::move(rows));
    write(calendar, options.file);
    if (calendar.leftOut() > 0) {
        tellLeftOut(std::to_string(calendar.leftOut()) + " intervals");
    }
    return ExitStatus::done;
}

}  // namespace

void addExport(CLI::App& line, Command& chosen) {
    const auto options = std::make_shared<ExportOptions>();
    CLI::App* command = line.add_subcommand("export", "Write what the window exports");
    command->add_option("RANGE", options->range, kRangeHelp);
    command->add_option("FILE", options->file, "Standard output where it is not given");
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
