// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <optional>

#include "base/date.h"

namespace hearthmark::ui {

// When something began, told by the machine's time zone on the day that began at `today`. Empty
// where there is no date, or one that is out of all calendars.
QString beganText(std::optional<base::Date> began, std::optional<base::Date> today);

// "14:05" of the day itself, "Fri 20 Nov, 14:05" of its year, else with the year; in the order and
// the words of the language.
QString dayAndTime(const QDateTime& moment, const QDate& today, const QLocale& locale = QLocale());

}  // namespace hearthmark::ui
