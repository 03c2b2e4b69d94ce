// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hearthmark::base {

// The text as searches compare it: neither case nor marks that leave a letter what it is (accents,
// Hebrew and Arabic points) make a difference, ı is i, ς is σ, ß is ss. Characters are folded one
// by one, so parts of a text have the folds of its parts. Bytes that are not valid UTF-8 become
// U+FFFD.
std::string folded(std::string_view text);

// The words of what is searched for, folded; none of them is empty.
std::vector<std::string> foldedWords(std::string_view text);

// Whether all of them are in a text of that fold.
bool holdsAll(std::string_view fold, const std::vector<std::string>& words);

// Where the character begins that has the byte at `offset` of the text's fold; the text's size
// where the fold is shorter.
std::size_t originOfFolded(std::string_view text, std::size_t offset);

// Appends the fold of the character that begins at `at`, and returns where it ends.
std::size_t foldNext(std::string_view text, std::size_t at, std::string& fold);

}  // namespace hearthmark::base
