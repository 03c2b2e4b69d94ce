// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

namespace hearthmark::platform {

// Tells assistive programs that an item of a list or a notification, which has these texts now, is
// not to be remembered. They find that in the states of the first, too, but a reader that never
// asks for states goes on with the first texts that it was given. Nobody hears of it as an event.
void keepFromReadersMemory(QAccessibleInterface& item, const QString& name,
                           const QString& description);

}  // namespace hearthmark::platform
