// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "base/folding.h"

namespace hearthmark::ui {

// The text with those parts in bold, as Text.StyledText shows it; else it looks as the plain text
// does, whatever is in it. Of a very long one its beginning: it is for one line.
QString markedText(const std::string& text, const std::vector<base::TextRange>& ranges);

}  // namespace hearthmark::ui
