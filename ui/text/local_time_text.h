// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <optional>

#include "base/calendar.h"

namespace hearthmark::ui {

QDate toQDate(std::chrono::year_month_day day);
// Of that day.
QTime toQTime(const base::LocalTime& time);

// "14:05", without seconds.
QString shortTime(const QTime& time, const QLocale& locale);

// A day and a time of day as a locale writes them in its short form, but with all digits of the
// year and with seconds.
class LocalTimeText {
 public:
    explicit LocalTimeText(const QLocale& locale);

    QString text(const base::LocalTime& time) const;

    // Absent where it is not of that form, with or without seconds, or there is no such day.
    std::optional<base::LocalTime> read(const QString& text) const;

    // With the part at the cursor, the day for instance, that many steps later. The text itself
    // where it cannot be read.
    QString stepped(const QString& text, int cursor, int steps) const;

 private:
    QLocale locale_;
    QString format_;
    QString formatWithoutSeconds_;
};

}  // namespace hearthmark::ui
