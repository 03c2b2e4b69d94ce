// SPDX-License-Identifier: MIT
#include "platform/appcast.h"

#include <QRegularExpression>
#include <QVersionNumber>
#include <QXmlStreamReader>
#include <optional>
#include <utility>

namespace hearthmark::platform {

namespace {

constexpr auto kNamespace = "https://hearthmark.org/appcast";
constexpr qint64 kLargestPackage = 200'000'000;
// The reader compares each attribute of an element with each other one: a megabyte of them would
// hold up the program for many seconds. Each has an equals sign.
constexpr qsizetype kMostAttributes = 20'000;

// Stricter than the toolkit, which takes signs and blanks: the text becomes part of a file's name
// and of what is signed.
std::optional<QVersionNumber> readVersion(const QString& text) {
    static const QRegularExpression kForm(QStringLiteral("\\A[0-9]{1,9}(?:\\.[0-9]{1,9}){0,4}\\z"));
    if (!kForm.match(text).hasMatch()) {
        return std::nullopt;
    }
    // 1.0 and 1.0.0 are the same version.
    return QVersionNumber::fromString(text).normalized();
}

void readEnclosure(const QXmlStreamAttributes& attributes, AppcastItem& item) {
    item.package = QUrl(attributes.value(QLatin1String("url")).toString(), QUrl::StrictMode);
    item.size = attributes.value(QLatin1String("length")).toLongLong();
}

void readRelease(const QXmlStreamAttributes& attributes, AppcastItem& item) {
    item.version = attributes.value(QLatin1String("version")).toString();
    item.signature = QByteArray::fromBase64Encoding(
                         attributes.value(QLatin1String("signature")).toLatin1(),
                         QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors)
                         .decoded;
}

bool isPlain(const QXmlStreamReader& xml, const char* name) {
    return xml.namespaceUri().isEmpty() && xml.name() == QLatin1String(name);
}

AppcastItem readItem(QXmlStreamReader& xml) {
    AppcastItem item;
    while (xml.readNextStartElement()) {
        if (isPlain(xml, "description")) {
            item.notes = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else {
            if (isPlain(xml, "enclosure")) {
                readEnclosure(xml.attributes(), item);
            } else if (xml.namespaceUri() == QLatin1String(kNamespace) &&
                       xml.name() == QLatin1String("release")) {
                readRelease(xml.attributes(), item);
            }
            xml.skipCurrentElement();
        }
    }
    return item;
}

bool isComplete(const AppcastItem& item) {
    return item.package.isValid() && item.package.scheme() == QLatin1String("https") &&
           item.size > 0 && item.size <= kLargestPackage && !item.signature.isEmpty();
}

// Enters the first element. A document type is refused, since it may declare entities, which grow
// when they are read.
bool enterRss(QXmlStreamReader& xml) {
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::DTD) {
        if (xml.isStartElement()) {
            return isPlain(xml, "rss");
        }
    }
    return false;
}

}  // namespace

AppcastReading readAppcast(const QByteArray& feed, const QString& currentVersion) {
    if (feed.count('=') > kMostAttributes) {
        return {};
    }
    QXmlStreamReader xml(feed);
    if (!enterRss(xml) || !xml.readNextStartElement() || !isPlain(xml, "channel")) {
        return {};
    }
    const QVersionNumber current = readVersion(currentVersion).value_or(QVersionNumber());
    AppcastReading newest{.verdict = AppcastVerdict::upToDate, .item = {}};
    QVersionNumber newestVersion = current;
    while (xml.readNextStartElement()) {
        if (!isPlain(xml, "item")) {
            xml.skipCurrentElement();
            continue;
        }
        AppcastItem item = readItem(xml);
        const auto version = readVersion(item.version);
        if (!version || *version <= current) {
            continue;
        }
        const auto verdict = isComplete(item) ? AppcastVerdict::newer : AppcastVerdict::incomplete;
        // What can be installed goes before what cannot.
        if (verdict > newest.verdict || (verdict == newest.verdict && *version > newestVersion)) {
            newest = {.verdict = verdict, .item = std::move(item)};
            newestVersion = *version;
        }
    }
    // To the end, so that one that was cut off is found out.
    while (!xml.atEnd()) {
        xml.readNext();
    }
    return xml.hasError() ? AppcastReading{} : newest;
}

}  // namespace hearthmark::platform
