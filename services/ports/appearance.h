// SPDX-License-Identifier: MIT
#pragma once

#include "livedata/published.h"

namespace hearthmark::services {

// How the desktop wants programs to look.
struct Appearance {
    bool isDark = false;
    // Nothing on the screen is to move.
    bool isStill = false;

    bool operator==(const Appearance&) const = default;
};

using AppearancePreference = livedata::Published<Appearance>;

}  // namespace hearthmark::services
