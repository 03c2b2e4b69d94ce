// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "base/clock.h"
#include "ctl/command.h"
#include "ctl/focus_status.h"
#include "ctl/follow.h"
#include "ctl/status_text.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::ctl {

namespace {

struct StatusOptions {
    bool isJson = false;
    bool isWaybar = false;
    bool isFollowed = false;

    StatusForm form() const {
        return isJson ? StatusForm::json : isWaybar ? StatusForm::waybar : StatusForm::plain;
    }
};

ExitStatus showStatus(const StatusOptions& options) {
    if (options.isFollowed) {
        follow(store::storeDirectory(), options.form());
        return ExitStatus::done;
    }
    const auto focus = focusInStore(store::storeDirectory());
    std::cout << statusLine(focus, base::SystemClock().now(), options.form());
    return focus && !focus->isInterrupted ? ExitStatus::done : ExitStatus::nothingRuns;
}

}  // namespace

void addStatus(CLI::App& line, Command& chosen) {
    const auto options = std::make_shared<StatusOptions>();
    CLI::App* command = line.add_subcommand("status", "Show the focus that runs");
    CLI::Option* json = command->add_flag("--json", options->isJson, "Print JSON");
    command->add_flag("--waybar", options->isWaybar, "Print what Waybar shows")->excludes(json);
    command->add_flag("--follow", options->isFollowed,
                      "Go on with a line a second while a focus runs, and one at each change");
    command->callback([&chosen, options] { chosen = [options] { return showStatus(*options); }; });
}

}  // namespace hearthmark::ctl
