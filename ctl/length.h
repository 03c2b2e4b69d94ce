// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "base/date.h"

namespace hearthmark::ctl {

// The length of a focus as somebody typed it, as the field of the window reads it: 25 and 25m are
// minutes, 1h30m, 25:00, 1:05:00. Throws UsageError where it is none, or not between a second and a
// day.
base::Seconds lengthFrom(const std::string& text);

}  // namespace hearthmark::ctl
