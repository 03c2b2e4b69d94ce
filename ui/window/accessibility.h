// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

namespace hearthmark::ui {

// Makes up for what the toolkit does to assistive technology: a disabled item is reported as
// disabled, where the toolkit does not, and a notification that appears is announced, where it can
// be. That a time has advanced is not told second by second: changes of the texts of an item whose
// property "ticks" is true cause no event, and whoever asks is given the present text, also those
// who remember what they once read. For the whole process; called once, after the application
// object and before the first window.
//
// The function is told of such an item each time that it was asked for a text.
using KeepFromMemory = void (*)(QAccessible::Id);
void prepareAccessibility(KeepFromMemory keepFromMemory);

}  // namespace hearthmark::ui
