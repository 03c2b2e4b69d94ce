// SPDX-License-Identifier: MIT
#include "ctl/json.h"

#include <cmath>
#include <cstdint>

#include "base/text.h"
#include "export/field_texts.h"

namespace hearthmark::ctl {

namespace {

// Beyond it not every whole number is a double.
constexpr double kMost = 9e15;

}  // namespace

Json jsonOf(const std::optional<std::string>& text) {
    return text && !text->empty() ? Json(base::withValidUtf8(*text)) : Json();
}

Json jsonOf(const std::optional<base::Uuid>& id) {
    return id ? Json(id->text()) : Json();
}

Json jsonOf(const std::optional<base::Date>& date) {
    std::string text;
    if (date) {
        exporting::appendDateTime(text, *date);
    }
    return jsonOf(std::optional(text));
}

Json wholeSeconds(base::Seconds seconds) {
    const double whole = std::floor(seconds.count());
    return std::abs(whole) < kMost ? Json(static_cast<std::int64_t>(whole)) : Json();
}

}  // namespace hearthmark::ctl
