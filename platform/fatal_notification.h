// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace hearthmark::platform {

// Shows the person why the program ends: a notification that stays, for whoever has no terminal to
// read. Blocks for a second at most; where there is no bus or nobody shows it, it is not shown.
void notifyOfFatalError(std::string_view message);

}  // namespace hearthmark::platform
