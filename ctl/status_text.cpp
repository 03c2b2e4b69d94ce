// SPDX-License-Identifier: MIT
#include "ctl/status_text.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/text.h"
#include "ctl/json.h"
#include "presentation/texts.h"
#include "store/time_texts.h"

namespace hearthmark::ctl {

namespace {

constexpr auto kNothingRuns = "Nothing runs.";
constexpr auto kInterrupted = "Interrupted: ";
constexpr double kPercent = 100;

// 12:05/30:00, and without a limit 12:05.
std::string times(const FocusStatus& focus, base::Seconds spent) {
    std::string text = presentation::orDash(store::formattedDuration(spent));
    if (focus.length > base::Seconds(0)) {
        text += '/' + presentation::orDash(store::formattedDuration(focus.length));
    }
    return text;
}

std::string nameOf(const FocusStatus& focus) {
    return focus.taskName.empty() ? "-" : onOneLine(focus.taskName);
}

std::string plain(const FocusStatus& focus, base::Seconds spent) {
    return (focus.isInterrupted ? kInterrupted : "") + times(focus, spent) + ' ' + nameOf(focus);
}

std::string_view stateOf(const FocusStatus& focus) {
    return focus.isInterrupted ? "interrupted" : "running";
}

Json json(const FocusStatus& focus, base::Seconds spent) {
    Json made{{"state", stateOf(focus)},
              {"taskId", jsonOf(focus.taskId)},
              {"taskName", jsonOf(focus.taskName)},
              {"intervalId", jsonOf(focus.intervalId)},
              {"start", jsonOf(focus.start)},
              {"spent", wholeSeconds(spent)},
              {"length", wholeSeconds(focus.length)}};
    if (focus.length > base::Seconds(0)) {
        made["rest"] = wholeSeconds(
            std::max(focus.length - base::Seconds(std::floor(spent.count())), base::Seconds(0)));
    }
    return made;
}

// The bar takes its texts for markup.
std::string escaped(const std::string& text) {
    std::string made;
    for (const char c : text) {
        switch (c) {
            case '&':
                made += "&amp;";
                break;
            case '<':
                made += "&lt;";
                break;
            case '>':
                made += "&gt;";
                break;
            default:
                made += c;
        }
    }
    return made;
}

Json waybar(const FocusStatus& focus, base::Seconds spent) {
    const double share = spent / focus.length;
    return {{"text", escaped(times(focus, spent))},
            {"tooltip", escaped((focus.isInterrupted ? kInterrupted : "") + nameOf(focus))},
            {"class", stateOf(focus)},
            {"percentage",
             std::isfinite(share) ? std::lround(std::clamp(share, 0.0, 1.0) * kPercent) : 0}};
}

}  // namespace

std::string statusLine(const std::optional<FocusStatus>& focus, base::Date now, StatusForm form) {
    const base::Seconds spent = focus ? timeSpent(*focus, now) : base::Seconds(0);
    switch (form) {
        case StatusForm::plain:
            return (focus ? plain(*focus, spent) : kNothingRuns) + '\n';
        case StatusForm::json:
            return (focus ? json(*focus, spent) : Json{{"state", "idle"}}).dump() + '\n';
        case StatusForm::waybar:
            break;
    }
    const Json idle{{"text", ""}, {"tooltip", kNothingRuns}, {"class", "idle"}, {"percentage", 0}};
    return (focus ? waybar(*focus, spent) : idle).dump() + '\n';
}

std::string onOneLine(const std::string& text) {
    const std::string valid = base::withValidUtf8(text);
    const std::string_view rest = valid;
    std::string line;
    for (std::size_t at = 0; at < rest.size();) {
        constexpr char kDelete = 0x7f;
        const bool isControl = (rest[at] >= 0 && rest[at] < ' ') || rest[at] == kDelete;
        // From U+0080 to U+009F; a terminal may take them for the beginning of a command.
        const bool isSecondControl =
            rest[at] == '\xC2' && static_cast<unsigned char>(rest[at + 1]) < 0xA0;
        const bool isSeparator =
            rest.substr(at).starts_with("\u2028") || rest.substr(at).starts_with("\u2029");
        if (isControl || isSecondControl || isSeparator) {
            line += ' ';
            at += isControl ? 1 : isSecondControl ? 2 : 3;
        } else {
            line += rest[at++];
        }
    }
    return line;
}

}  // namespace hearthmark::ctl
