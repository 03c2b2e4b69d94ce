// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "livedata/published.h"

namespace hearthmark::services {

// Whether the program is started when the person logs in, as far as it is known.
struct StartAtLoginState {
    bool isOn = false;
    // Why it cannot be changed here, as a sentence; empty where it can.
    std::string unavailableReason{};
    // Why the last change failed, as a sentence; empty where it did not.
    std::string fault{};

    bool operator==(const StartAtLoginState&) const = default;
};

// What the desktop does when the person logs in. Main thread; no call waits for another program.
class StartAtLogin {
 public:
    virtual ~StartAtLogin() = default;

    // Nothing is known before the first refresh().
    virtual livedata::Published<StartAtLoginState>& state() = 0;

    // Looks anew, since other programs may change it too. Forgets the fault.
    virtual void refresh() = 0;

    // Turns it on where it is off, and off where it is on. Where it cannot be changed, nothing.
    virtual void toggle() = 0;
};

}  // namespace hearthmark::services
