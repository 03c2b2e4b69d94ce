// SPDX-License-Identifier: MIT
#include "ui/text/began_text.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <cmath>

#include "ui/text/local_time_text.h"

namespace hearthmark::ui {

namespace {

// The years that every calendar function can count.
constexpr base::Seconds kFarthest{1e11};

// The language's format of a whole date with short names, and without the comma beside the day of
// the week, since another one comes before the time.
QString dayFormat(const QLocale& locale, bool hasYear) {
    QString format = locale.dateFormat(QLocale::LongFormat);
    format.replace(QLatin1String("dddd"), QLatin1String("ddd"));
    format.replace(QLatin1String("MMMM"), QLatin1String("MMM"));
    static const QRegularExpression kComma(QStringLiteral("(?<=ddd)[,،]|[,،](?=\\s*ddd)"));
    format.remove(kComma);
    if (!hasYear) {
        // What stands between it and the next part belongs to it, and at the end what stands
        // before.
        static const QRegularExpression kYear(
            QStringLiteral("y+('[^']*'|[^dM'])*(?=[dM])|([^dM']|'[^']*')*y+([^dM']|'[^']*')*$"));
        format.remove(kYear);
    }
    return format.trimmed();
}

// In the machine's time zone; not valid where that is out of all calendars.
QDateTime localDateTime(base::Date date) {
    const base::Seconds unixTime = date.sinceReferenceDate() + base::kUnixTimeOfReferenceDate;
    if (!(std::abs(unixTime.count()) < kFarthest.count())) {
        return {};
    }
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(unixTime.count())));
}

}  // namespace

QString dayAndTime(const QDateTime& moment, const QDate& today, const QLocale& locale) {
    QString time = shortTime(moment.time(), locale);
    if (moment.date() == today) {
        return time;
    }
    const QString format = dayFormat(locale, moment.date().year() != today.year());
    return QCoreApplication::translate("BeganText", "%1, %2")
        .arg(locale.toString(moment.date(), format), time);
}

QString beganText(std::optional<base::Date> began, std::optional<base::Date> today) {
    const QDateTime moment = began ? localDateTime(*began) : QDateTime();
    return moment.isValid() ? dayAndTime(moment, today ? localDateTime(*today).date() : QDate())
                            : QString();
}

}  // namespace hearthmark::ui
