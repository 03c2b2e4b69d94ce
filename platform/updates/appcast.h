// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace hearthmark::platform {

// One version of the program, as the feed describes it.
struct AppcastItem {
    // Digits and dots.
    QString version;
    QString notes;
    QUrl package;
    // Of the package, in bytes.
    qint64 size = 0;
    QByteArray signature;
};

// From the least to the most that can be done.
enum class AppcastVerdict {
    unreadable,
    upToDate,
    // There is a newer version, but the feed does not say all that it takes to install it.
    incomplete,
    newer
};

struct AppcastReading {
    AppcastVerdict verdict = AppcastVerdict::unreadable;
    // The newest version there is, where there is one.
    AppcastItem item;
};

// What a feed has for a program of this version; docs/releasing.md describes its form. Never finds
// a version that is not higher.
AppcastReading readAppcast(const QByteArray& feed, const QString& currentVersion);

}  // namespace hearthmark::platform
