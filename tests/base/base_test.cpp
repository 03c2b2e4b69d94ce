// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <ctime>

#include "base/calendar.h"
#include "base/clock.h"
#include "base/folding.h"
#include "base/found_ranges.h"
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

TEST(Folding, MakesTextsEqualThatSearchesTakeForEqual) {
    const auto rows = std::to_array<std::pair<std::string_view, std::string_view>>({
        {"Straße STRASSE", "strasse strasse"},
        {"\u0130stanbul \u0131rmak IRMAK", "istanbul irmak irmak"},
        {"\u039f\u0394\u039f\u03a3 \u03bf\u03b4\u03cc\u03c2",
         "\u03bf\u03b4\u03bf\u03c3 \u03bf\u03b4\u03bf\u03c3"},
        {"R\u00e9sum\u00e9 re\u0301sume\u0301", "resume resume"},
        // Hebrew with points and without.
        {"\u05e9\u05c1\u05b8\u05dc\u05d5\u05b9\u05dd", "\u05e9\u05dc\u05d5\u05dd"},
        // Thai vowels and voiced kana make other words of it.
        {"\u0e01\u0e34\u0e19 \u304c", "\u0e01\u0e34\u0e19 \u304b\u3099"},
        // A ligature, two marks on one letter, a letter beyond 16 bits, a mark without a letter.
        {"\ufb01 \u1ead \U00010400 \u0301", "fi a \U00010428 "},
        {"a\0B"sv, "a\0b"sv},
        {"\xff"
         "A \xe2\x80 \xc3",
         "\ufffda \ufffd \ufffd"},
    });
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(folded(text), expected) << text;
    }
    EXPECT_EQ(foldedWords(" \u00c4 \u0301 a\u3000\u0130\n"),
              (std::vector<std::string>{"a", "a", "i"}));
}

TEST(Folding, FoldsNothingTwiceAndFindsTheWayBack) {
    for (std::uint32_t character = 0x80; character <= 0x10ffff; ++character) {
        const auto tail = [character](unsigned shift) {
            return static_cast<char>(0x80U | (character >> shift & 0x3fU));
        };
        // Surrogates are no characters.
        const std::string text =
            character < 0x800 ? std::string{static_cast<char>(0xc0U | character >> 6), tail(0)}
            : character < 0x10000
                ? std::string{static_cast<char>(0xe0U | character >> 12), tail(6), tail(0)}
                : std::string{static_cast<char>(0xf0U | character >> 18), tail(12), tail(6),
                              tail(0)};
        const std::string fold = folded(text);
        ASSERT_EQ(folded(fold), fold) << text;
        const std::size_t expected = fold.empty() ? 4 + text.size() : 4;
        ASSERT_EQ(originOfFolded("ab c" + text + "d", 4), expected) << text;
        ASSERT_EQ(originOfFolded("ab c" + text + "d", 4 + fold.size()), 4 + text.size()) << text;
    }
}

TEST(Folding, FindsWholeCharactersWithTheMarksOnThem) {
    struct Row {
        std::string_view text;
        std::vector<std::string> words;
        std::string_view found;
    };
    for (const Row& row : std::to_array<Row>({
             {"Stra\u00dfe", {"s"}, "[S]tra[\u00df]e"},
             {"caf\u00e9 cafe\u0301s", {"e", "fe"}, "ca[f\u00e9] ca[fe\u0301]s"},
             {"\u0301a\u0301", {"a"}, "\u0301[a\u0301]"},
             {"ababa", {"aba"}, "[ababa]"},
             {"\xe2\x80"
              "A\xff\0b"sv,
              {"a\ufffd", "b"},
              "\xe2\x80[A\xff]\0[b]"sv},
             {"", {"a"}, ""},
         })) {
        std::string marked(row.text);
        std::size_t shift = 0;
        for (const TextRange& range : rangesOfWords(row.text, row.words)) {
            marked.insert(range.begin + shift++, 1, '[');
            marked.insert(range.end + shift++, 1, ']');
        }
        EXPECT_EQ(marked, row.found);
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
    // Apia left out 2011-12-30.
    setenv("TZ", "Pacific/Apia", 1);
    for (const int day : {30, 31}) {
        EXPECT_EQ(LocalCalendar().dayStart(std::chrono::year(2011) / 12 / day),
                  Date(Seconds(1325239200) - kUnixTimeOfReferenceDate));
    }
    setenv("TZ", "Asia/Kolkata", 1);
    const auto time = LocalCalendar().localTime(Date(Seconds(86400 * 31 - 1.5)));
    EXPECT_EQ(time, (LocalTime{std::chrono::year(2001) / 2 / 1, std::chrono::seconds(19798)}));
    unsetenv("TZ");
    tzset();
}

}  // namespace hearthmark::base
