// SPDX-License-Identifier: MIT
#pragma once

namespace hearthmark::ui {

// Makes up for two things that the toolkit does to assistive technology: a disabled item is
// reported as disabled, and that a time has advanced is not told second by second: changes of a
// description, and of the name of what only displays a text, cause no event, and whoever asks is
// given the present text. For the whole process; called once, after the application object and
// before the first window.
void prepareAccessibility();

}  // namespace hearthmark::ui
