// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "base/found_ranges.h"

namespace hearthmark::ui {

// The text with those parts in bold, as Text.StyledText shows it. Else it looks as the plain text
// does, but that all spaces have one width. Of a very long one its beginning: it is for one line.
QString markedText(const std::string& text, const std::vector<base::TextRange>& ranges);

}  // namespace hearthmark::ui
