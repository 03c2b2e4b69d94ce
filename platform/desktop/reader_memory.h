// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace hearthmark::platform {

// Tells assistive programs that an item, by its QAccessible::Id, is not to be remembered. They find
// that in its states, too, but a reader that never asks for states goes on with the first texts
// that it was given. Nobody hears of it as an event.
void keepFromReadersMemory(quint32 id);

}  // namespace hearthmark::platform
