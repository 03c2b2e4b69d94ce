// SPDX-License-Identifier: MIT
#include "platform/updates/appcast.h"

#include <QRegularExpression>
#include <QVersionNumber>
#include <QXmlStreamReader>
#include <optional>
#include <utility>

namespace hearthmark::platform {

namespace {

constexpr auto kNamespace = "https://hearthmark.org/appcast";
constexpr qint64 kLargestPackage = 200'000'000;
// Takes the XML reader 40 ms.
constexpr qsizetype kMostComparisons = 10'000'000;

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

// Of what begins with "<" and goes on to the next one. What follows the tag's own end, as notes
// with lines of equals signs do, is text.
qsizetype equalsSignsInTag(QByteArrayView tag) {
    if (tag.startsWith("<!")) {
        return 0;  // a comment, or text that is not read as tags
    }
    qsizetype signs = 0;
    char quote = 0;
    for (const char c : tag) {
        if (quote != 0) {
            quote = c == quote ? char(0) : quote;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            break;
        } else if (c == '=') {
            ++signs;
        }
    }
    return signs;
}

// How many names the XML reader compares at most: each element and attribute looks through all
// namespaces that are declared around it, and each attribute through the others of its element.
// Without this bound a feed of 1 MB holds up the program for many seconds. What only looks like an
// element or an attribute counts too.
qsizetype comparisons(const QByteArray& feed) {
    qsizetype elements = 0;
    qsizetype attributes = 0;
    qsizetype pairs = 0;
    for (qsizetype begin = feed.indexOf('<'); begin >= 0;) {
        const qsizetype next = feed.indexOf('<', begin + 1);
        const qsizetype length = (next < 0 ? feed.size() : next) - begin;
        const qsizetype signs = equalsSignsInTag(QByteArrayView(feed).sliced(begin, length));
        ++elements;
        attributes += signs;
        pairs += signs * signs;
        begin = next;
    }
    return pairs + feed.count("xmlns") * (elements + attributes);
}

// A document type is refused before it is read: what it declares, entities for one, grows when it
// is read, or takes time with the square of its length.
bool isReadable(const QByteArray& feed) {
    return !feed.contains("<!DOCTYPE") && comparisons(feed) <= kMostComparisons;
}

}  // namespace

AppcastReading readAppcast(const QByteArray& feed, const QString& currentVersion) {
    if (!isReadable(feed)) {
        return {};
    }
    // As text, so that no declaration in it gives its bytes another meaning than they had above.
    QXmlStreamReader xml(QString::fromUtf8(feed));
    if (!xml.readNextStartElement() || !isPlain(xml, "rss") || !xml.readNextStartElement() ||
        !isPlain(xml, "channel")) {
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
