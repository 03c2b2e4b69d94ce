// SPDX-License-Identifier: MIT
#include "ctl/bus_error.h"

#include <cerrno>
#include <string_view>
#include <system_error>

#include "base/text.h"

namespace hearthmark::ctl {

BusError errorOf(const FailedCall& call) {
    using Cause = BusError::Cause;
    constexpr std::string_view ours = "org.hearthmark.Focus.Error.";
    constexpr std::string_view common = "org.freedesktop.DBus.Error.";
    const std::string_view name = call.name;
    const std::string sentence = base::withValidUtf8(call.message);
    if (name.starts_with(ours)) {
        const std::string_view which = name.substr(ours.size());
        return {which == "FocusRunning"   ? Cause::focusRunning
                : which == "NothingRuns"  ? Cause::nothingRuns
                : which == "TooManyCalls" ? Cause::tooManyCalls
                                          : Cause::other,
                sentence};
    }
    const std::string_view which = name.starts_with(common) ? name.substr(common.size()) : "";
    if (!call.startsProgram && (which == "ServiceUnknown" || which == "NameHasNoOwner")) {
        return {Cause::notRunning, "Hearthmark does not run."};
    }
    if (call.startsProgram &&
        (which == "ServiceUnknown" || which.starts_with("Spawn.") || which == "TimedOut")) {
        return {Cause::notRunning,
                "Hearthmark does not run, and the session bus cannot start it: " + sentence};
    }
    if (which == "UnknownMethod" || which == "UnknownInterface" || which == "UnknownProperty") {
        return {Cause::other, "The Hearthmark that runs is of a version that cannot do this."};
    }
    if (call.error == ETIMEDOUT || call.error == ECONNRESET || call.error == ENOTCONN ||
        which == "NoReply" || which == "Disconnected") {
        return {Cause::other, "Hearthmark does not answer. It may still do what it was asked for."};
    }
    return {Cause::other,
            "Hearthmark did not do it: " +
                (sentence.empty() ? std::generic_category().message(call.error) : sentence)};
}

}  // namespace hearthmark::ctl
