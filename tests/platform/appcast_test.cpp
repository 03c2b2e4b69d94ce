// SPDX-License-Identifier: MIT
#include "platform/updates/appcast.h"

#include <gtest/gtest.h>

#include <vector>

namespace hearthmark::platform {
namespace {

using enum AppcastVerdict;

QByteArray item(const char* version, const char* address = "https://h/a.deb",
                const char* length = "9") {
    return QByteArray("<item><enclosure url='") + address + "' length='" + length +
           "'/><u:release version='" + version + "' signature='AAAA'/></item>";
}

QByteArray feed(const QByteArray& items) {
    return "<rss xmlns:u='https://hearthmark.org/appcast'><channel>" + items + "</channel></rss>";
}

// The two texts with a number of its own between them, so many times.
QByteArray numbered(const char* before, const char* after, int count) {
    QByteArray result;
    for (int number = 0; number < count; ++number) {
        result += before + QByteArray::number(number) + after;
    }
    return result;
}

TEST(Appcast, FindsTheNewestVersionThatIsHigherAndCanBeInstalled) {
    const std::vector<std::tuple<QByteArray, AppcastVerdict, const char*>> rows = {
        {feed(item("1.9") + item("1.10.1") + item("1.10")), newer, "1.10.1"},
        {feed(item("1.2.0") + item("1.1.9") + item("0.9")), upToDate, ""},
        {feed(item("v2") + item("2.-1") + item("2.+1") + item("2..1") + item("")), upToDate, ""},
        {feed(item("2.0-rc1") + item("9999999999") + item(" 2") + item("2.")), upToDate, ""},
        {feed("<item><title>T</title></item>" + item("1.3")), newer, "1.3"},
        {feed(item("1.3") + item("1.4", "http://h/a.deb")), newer, "1.3"},
        {feed(item("1.4", "file:///etc/passwd")), incomplete, "1.4"},
        {feed(item("1.4", "https://h/a.deb", "-1")), incomplete, "1.4"},
        {feed(item("1.4", "https://h/a.deb", "200000001")), incomplete, "1.4"},
        {feed(item("1.4").replace("AAAA", "A*AA")), incomplete, "1.4"},
        {feed(item("1.4").replace("u:release", "release")), upToDate, ""},
        {feed(item("1.4")).chopped(9), unreadable, ""},
        {feed("<item><title>&nbsp;</title></item>" + item("1.4")), unreadable, ""},
        {"<!DOCTYPE rss>" + feed(item("1.4")), unreadable, ""},
        {"<!DOCTYPE rss [<!ENTITY % a '<!ENTITY b \"c\">'> %a; %a;]>" + feed(item("1.4")),
         unreadable, ""},
        // What would take seconds to read.
        {feed(item("1.4") + "<a " + numbered(" a", "=''", 4'000) + "/>"), unreadable, ""},
        {feed(item("1.4")).replace("<rss", "<rss" + numbered(" xmlns:a", "='u'", 900)) +
             QByteArray("<!---->").repeated(20'000),
         unreadable, ""},
        {"<!DOCTYPE rss [" + numbered("<!ATTLIST a", " b CDATA 'c'>", 100) + "]>" +
             feed(item("1.4")),
         unreadable, ""},
        // What would not: notes with lines of equals signs.
        {feed(item("1.4") + "<title>" + QByteArray(20'000, '=') + "</title><title><![CDATA[" +
              QByteArray(20'000, '=') + "]]></title>"),
         newer, "1.4"},
        // Nor: years of releases, each with a declaration of its own.
        {feed(item("1.4").replace("<item>", "<item xmlns:v='v'>").repeated(800)), newer, "1.4"},
        {"<html><channel>" + item("1.4") + "</channel></html>", unreadable, ""},
        {"", unreadable, ""},
    };
    for (const auto& [text, verdict, version] : rows) {
        const AppcastReading reading = readAppcast(text, QStringLiteral("1.2"));
        EXPECT_EQ(reading.verdict, verdict) << text.toStdString();
        EXPECT_EQ(reading.item.version, version) << text.toStdString();
    }
}

}  // namespace
}  // namespace hearthmark::platform
