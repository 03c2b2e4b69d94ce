// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/uuid.h"

namespace hearthmark::ctl {

// What --json prints: keys in the order in which they were put there.
using Json = nlohmann::ordered_json;

// Null where there is none, or nothing in it; bytes that are not UTF-8 are U+FFFD.
Json jsonOf(const std::optional<std::string>& text);
Json jsonOf(const std::optional<base::Uuid>& id);
// 2026-11-23T12:34:10Z; null where there is none, or no calendar has it.
Json jsonOf(const std::optional<base::Date>& date);
// Rounded down, as the window shows them; null where no clock would show so many.
Json wholeSeconds(base::Seconds seconds);

}  // namespace hearthmark::ctl
