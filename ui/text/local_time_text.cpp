// SPDX-License-Identifier: MIT
#include "ui/text/local_time_text.h"

#include <QDateTime>
#include <algorithm>
#include <utility>

namespace hearthmark::ui {

namespace {

constexpr int kHour = 3600;

// What the letters and digits before the cursor, and at it, are the how-manieth run of.
qsizetype runAt(const QString& text, qsizetype cursor) {
    qsizetype run = -1;
    bool isInRun = false;
    for (qsizetype i = 0; i < text.size() && (i < cursor || (i == cursor && run < 0)); ++i) {
        const bool wasInRun = std::exchange(isInRun, text[i].isLetterOrNumber());
        run += isInRun && !wasInRun ? 1 : 0;
    }
    return std::max<qsizetype>(run, 0);
}

// The letter of that run of a format; the day where there is none.
QChar letterAt(const QString& format, qsizetype run) {
    bool isInRun = false;
    for (const QChar each : format) {
        const bool wasInRun = std::exchange(isInRun, each.isLetter());
        if (isInRun && !wasInRun && run-- == 0) {
            return each;
        }
    }
    return 'd';
}

QDateTime later(const QDateTime& time, QChar part, int steps) {
    switch (part.toLatin1()) {
        case 'y':
            return time.addYears(steps);
        case 'M':
            return time.addMonths(steps);
        case 'h':
        case 'H':
            return time.addSecs(qint64{steps} * kHour);
        case 'm':
            return time.addSecs(qint64{steps} * 60);
        case 's':
            return time.addSecs(steps);
        case 'a':
        case 'A':
            return time.addSecs(qint64{steps} * kHour * 12);
        default:
            return time.addDays(steps);
    }
}

// On the wall: no zone takes part in it.
QDateTime onTheWall(QDateTime time) {
    time.setTimeSpec(Qt::UTC);
    return time;
}

}  // namespace

QDate toQDate(std::chrono::year_month_day day) {
    return {int(day.year()), int(unsigned(day.month())), int(unsigned(day.day()))};
}

QTime toQTime(const base::LocalTime& time) {
    return QTime(0, 0).addSecs(int(time.sinceMidnight.count()));
}

QString shortTime(const QTime& time, const QLocale& locale) {
    // The short format of no language in particular has seconds.
    return locale.language() == QLocale::C ? time.toString(QStringLiteral("HH:mm"))
                                           : locale.toString(time, QLocale::ShortFormat);
}

LocalTimeText::LocalTimeText(const QLocale& locale) : locale_(locale) {
    QString date = locale.dateFormat(QLocale::ShortFormat);
    if (!date.contains(QLatin1String("yyyy"))) {
        date.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    }
    // Newer locale data have spaces in it that nobody can type.
    QString time = locale.timeFormat(QLocale::ShortFormat).simplified();
    time.remove(QLatin1String(":ss"));
    formatWithoutSeconds_ = date + QLatin1Char(' ') + time;
    format_ = date + QLatin1Char(' ') + time.replace(QLatin1String("mm"), QLatin1String("mm:ss"));
}

QString LocalTimeText::text(const base::LocalTime& time) const {
    return locale_.toString(QDateTime(toQDate(time.day), toQTime(time), Qt::UTC), format_);
}

std::optional<base::LocalTime> LocalTimeText::read(const QString& text) const {
    for (const QString& format : {format_, formatWithoutSeconds_}) {
        const QDateTime time = onTheWall(locale_.toDateTime(text.simplified(), format));
        if (time.isValid()) {
            const QDate day = time.date();
            return base::LocalTime{
                std::chrono::year_month_day{std::chrono::year(day.year()),
                                            std::chrono::month(unsigned(day.month())),
                                            std::chrono::day(unsigned(day.day()))},
                std::chrono::seconds(QTime(0, 0).secsTo(time.time()))};
        }
    }
    return std::nullopt;
}

QString LocalTimeText::stepped(const QString& text, int cursor, int steps) const {
    const QDateTime time = onTheWall(locale_.toDateTime(text.simplified(), format_));
    return time.isValid() ? locale_.toString(
                                later(time, letterAt(format_, runAt(text, cursor)), steps), format_)
                          : text;
}

}  // namespace hearthmark::ui
