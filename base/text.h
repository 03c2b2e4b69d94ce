// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace hearthmark::base {

// The text without the Unicode white space and line breaks at both ends. Bytes that are not valid
// UTF-8 are no white space and stay. The result views into the argument.
std::string_view trimmed(std::string_view text);

// Whether the bytes are well-formed UTF-8: no overlong forms, no surrogates, nothing cut short.
bool isValidUtf8(std::string_view text);

}  // namespace hearthmark::base
