// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "ctl/focus_status.h"

namespace hearthmark::ctl {

// How a status is written.
enum class StatusForm { plain, json, waybar };

// The status at a moment as one line, with its end, whatever the name holds; absent is that nothing
// runs. The manual page describes each form.
std::string statusLine(const std::optional<FocusStatus>& focus, base::Date now, StatusForm form);

// The text on one line: what would break or end it, or move about on a terminal, is a space, and
// bytes that are not UTF-8 are U+FFFD.
std::string onOneLine(const std::string& text);

}  // namespace hearthmark::ctl
