// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace hearthmark::platform {

// Shows the person why this process ends, or begins anew: a notification that stays, for whoever
// has no terminal to read. Blocks for a second at most. Whether a daemon has taken it: where there
// is no bus or nobody shows it, it is not shown.
bool notifyBeforeTheEnd(const QString& title, std::string_view message);

}  // namespace hearthmark::platform
