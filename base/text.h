// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace hearthmark::base {

// The text without the Unicode white space and line breaks at both ends. Bytes that are not valid
// UTF-8 are no white space and stay. The result views into the argument.
std::string_view trimmed(std::string_view text);

// Whether a character of UTF-8 begins with the byte.
constexpr bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
}

// Whether the bytes are well-formed UTF-8: no overlong forms, no surrogates, nothing cut short.
bool isValidUtf8(std::string_view text);

// U+FFFD, which stands for what cannot be shown.
constexpr std::string_view kReplacementCharacter = "\uFFFD";

// The text with replacement characters for the bytes that are not UTF-8.
std::string withValidUtf8(std::string_view text);

}  // namespace hearthmark::base
