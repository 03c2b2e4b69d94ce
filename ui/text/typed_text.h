// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickTextDocument>
#include <string>

namespace hearthmark::ui {

// What was typed and pasted into an editor. Its text property will not do: that has a blank for
// each no-break space and a line break for each line separator.
std::string typedText(const QQuickTextDocument& document);

}  // namespace hearthmark::ui
