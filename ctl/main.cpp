// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "ctl/command.h"
#include "objectstore/store_error.h"
#include "store/persistent_container_factory.h"
#include "store/store_fault.h"

using namespace hearthmark;

namespace {

ctl::ExitStatus fail(std::string_view message, ctl::ExitStatus status) {
    std::cerr << "hearthmarkctl: " << message << '\n';
    return status;
}

ctl::ExitStatus run(const ctl::Command& command) {
    using ctl::ExitStatus;
    try {
        const ExitStatus status = command();
        // A full disk or a reader that has gone shows only when all is out.
        std::cout.flush();
        return std::cout ? status : fail("The output cannot be written.", ExitStatus::couldNot);
    } catch (const ctl::UsageError& error) {
        return fail(error.what(), ExitStatus::usage);
    } catch (const objectstore::StoreError& error) {
        const std::string_view reason = store::faultOf(error, store::storeDirectory()).reason;
        const std::string details = error.what();
        return fail(reason.empty() ? details : std::string(reason) + ' ' + details,
                    ExitStatus::couldNot);
    } catch (const std::exception& error) {
        return fail(error.what(), ExitStatus::couldNot);
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    CLI::App line("Looks at Hearthmark's tasks and times, and starts and ends what runs.",
                  "hearthmarkctl");
    line.set_version_flag("--version", "hearthmarkctl " HEARTHMARK_VERSION);
    line.require_subcommand(1);
    ctl::Command command;
    for (const auto add :
         {ctl::addStatus, ctl::addTasks, ctl::addHistory, ctl::addExport, ctl::addChanges}) {
        add(line, command);
    }
    try {
        line.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool isAnswer = line.exit(error) == static_cast<int>(CLI::ExitCodes::Success);
        return static_cast<int>(isAnswer ? ctl::ExitStatus::done : ctl::ExitStatus::usage);
    }
    return static_cast<int>(run(command));
}
