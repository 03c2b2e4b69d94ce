// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hearthmark::base {

// Bytes of a text from `begin` to before `end`.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const TextRange&) const = default;
};

// Where folded words stand in the text: whole characters with the marks on them, from the first to
// the last, none of them touching another. It takes 4 bytes for each of the text.
std::vector<TextRange> rangesOfWords(std::string_view text, const std::vector<std::string>& words);

}  // namespace hearthmark::base
