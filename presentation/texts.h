// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace hearthmark::presentation {

// Stands for any text that there is not.
inline std::string orDash(const std::optional<std::string>& text) {
    return text.value_or("-");
}

}  // namespace hearthmark::presentation
