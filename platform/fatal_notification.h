// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace hearthmark::platform {

// Show the person why the program ends, or cannot begin: a notification that stays, for whoever has
// no terminal to read. They block for a second at most. Where there is no bus or nobody shows it,
// it is not shown.
void notifyOfFatalError(std::string_view message);
// Whether a daemon has taken it.
bool notifyThatItCannotBegin(std::string_view message);

}  // namespace hearthmark::platform
