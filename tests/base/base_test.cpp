// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <ctime>

#include "base/calendar.h"
#include "base/clock.h"
#include "base/text.h"
#include "base/uuid.h"

namespace hearthmark::base {

using namespace std::string_view_literals;

TEST(Trimmed, CutsUnicodeWhiteSpaceAtTheEndsAndKeepsEveryOtherByte) {
    const auto rows = std::to_array<std::pair<std::string_view, std::string_view>>({
        {" \t\r\n\v\f", ""},
        {"  two  words\n", "two  words"},
        {"\u00a0\u2003no-break and em\u3000\u0085", "no-break and em"},
        {"\u00a0\u2028", ""},
        // Neither a zero-width space nor a byte order mark is white space.
        {" \u200btext\ufeff ", "\u200btext\ufeff"},
        {" \0 "sv, "\0"sv},
        // No UTF-8: a lone continuation, a cut sequence, what would be U+00A0 in Latin-1.
        {" \x80 ", "\x80"},
        {" \xe2\x80 ", "\xe2\x80"},
        {"\xa0 a \xa0", "\xa0 a \xa0"},
    });
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(trimmed(text), expected) << text;
    }
}

TEST(IsValidUtf8, HoldsForEveryCharacterAndNothingElse) {
    for (const auto text : {""sv, "\0"sv, "\x7f\u0080\u07ff\u0800\ud7ff\ue000\uffff"sv,
                            "\U00010000\U0001f345\U0010ffff"sv}) {
        EXPECT_TRUE(isValidUtf8(text)) << text;
    }
    // Overlong forms, surrogates, beyond U+10FFFF, cut sequences, a lone continuation, no lead.
    for (const auto text :
         {"\xc0\x80", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf", "\xed\xa0\x80", "\xed\xbf\xbf",
          "\xf4\x90\x80\x80", "\xe2\x80", "\xf0\x9f\x8d", "\xe2\x80 ", "\x80", "\xff"}) {
        EXPECT_FALSE(isValidUtf8(std::string("a") + text)) << text;
        EXPECT_FALSE(isValidUtf8(text + std::string("a"))) << text;
    }
}

TEST(Uuid, ReadsOneFormInEitherLetterCaseAndWritesUpperCase) {
    constexpr auto kText = "00FF10AB-1234-4CDE-8F00-ABCDEF012345";
    EXPECT_EQ(Uuid::fromText(kText).value().text(), kText);
    EXPECT_EQ(Uuid::fromText("00ff10ab-1234-4cde-8f00-abcdef012345"), Uuid::fromText(kText));
    for (const auto text :
         {""sv, "00FF10AB12344CDE8F00ABCDEF012345"sv, "{00FF10AB-1234-4CDE-8F00-ABCDEF012345}"sv,
          "0-FF10AB01234-4CDE-8F00-ABCDEF012345"sv, "G0FF10AB-1234-4CDE-8F00-ABCDEF012345"sv,
          "\0000FF10AB-1234-4CDE-8F00-ABCDEF01234"sv}) {
        EXPECT_FALSE(Uuid::fromText(text)) << text;
    }
    EXPECT_EQ(Uuid::random().text()[14], '4') << "the version";
    EXPECT_NE(Uuid::random(), Uuid::random());
}

TEST(LocalCalendar, BeginsDaysWhereTheClocksBeginThem) {
    const auto starts = [](const char* zone, double unixTime, int count) {
        setenv("TZ", zone, 1);
        std::string text;
        for (const Date start :
             LocalCalendar().dayStarts(Date(Seconds(unixTime) - kUnixTimeOfReferenceDate), count)) {
            text += std::to_string(std::llround(
                        (start.sinceReferenceDate() + kUnixTimeOfReferenceDate).count())) +
                    ' ';
        }
        return text;
    };
    // 2026-03-29 has 23 hours in Berlin, and 2026-10-25 has 25.
    EXPECT_EQ(starts("Europe/Berlin", 1774800000, 2), "1774652400 1774738800 1774821600 ");
    EXPECT_EQ(starts("Europe/Berlin", 1792900000, 1), "1792879200 1792969200 ");
    // In Santiago the clocks go from midnight to one o'clock on 2026-09-06.
    EXPECT_EQ(starts("America/Santiago", 1788710400, 1), "1788667200 1788750000 ");
    // In Ponta Delgada they go back from one o'clock to midnight on 2024-10-27.
    EXPECT_EQ(starts("Atlantic/Azores", 1730030400, 1), "1729987200 1730077200 ");
    EXPECT_EQ(starts("UTC", 1e300, 1), "");
    setenv("TZ", "Asia/Kolkata", 1);
    const auto time = LocalCalendar().localTime(Date(Seconds(86400 * 31 - 1.5)));
    EXPECT_EQ(time, (LocalTime{std::chrono::year(2001) / 2 / 1, std::chrono::seconds(19798)}));
    unsetenv("TZ");
    tzset();
}

}  // namespace hearthmark::base
