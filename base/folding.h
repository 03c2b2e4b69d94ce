// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hearthmark::base {

// The text as searches compare it: neither case nor marks (accents, Hebrew points) make a
// difference, ı is i, ς is σ, ß is ss. Characters are folded one by one, so parts of a text have
// the folds of its parts. Bytes that are not valid UTF-8 become U+FFFD, as they are shown.
std::string folded(std::string_view text);

// The words of what is searched for, folded; none of them is empty.
std::vector<std::string> foldedWords(std::string_view text);

// Where the character begins that has the byte at `offset` of the text's fold; the text's size
// where the fold is shorter.
std::size_t originOfFolded(std::string_view text, std::size_t offset);

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
