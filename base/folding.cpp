// SPDX-License-Identifier: MIT
#include "base/folding.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace hearthmark::base {

namespace {

// They have neither case nor marks.
constexpr UChar32 kFirstIdeograph = 0x3400;
constexpr UChar32 kEndOfIdeographs = 0xA000;
constexpr UChar32 kDotlessI = 0x131;
// More than any character has in its decomposition, or in the fold of a part of that.
constexpr int32_t kMostUnits = 32;

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char foldedAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

void require(UErrorCode error) {
    if (U_FAILURE(error) != 0) {
        throw std::runtime_error(u_errorName(error));
    }
}

void appendUtf8(std::string& text, UChar32 character) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    int32_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, character);
    text.append(bytes.data(), static_cast<std::size_t>(length));
}

// Steps over the character at `at`; negative where the bytes are none.
UChar32 nextCharacter(std::string_view text, std::size_t& at) {
    // The macro counts in signed numbers.
    const std::string_view rest = text.substr(at, U8_MAX_LENGTH);
    int32_t length = 0;
    UChar32 character = 0;
    // It puts differences of bytes into bytes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
    U8_NEXT(rest.data(), length, static_cast<int32_t>(rest.size()), character);
#pragma GCC diagnostic pop
    at += static_cast<std::size_t>(length);
    return character;
}

using Units = std::array<UChar, kMostUnits>;

int32_t decomposed(UChar32 character, Units& units) {
    UErrorCode error = U_ZERO_ERROR;
    int32_t length = unorm2_getDecomposition(unorm2_getNFDInstance(&error), character, units.data(),
                                             kMostUnits, &error);
    require(error);
    if (length < 0) {
        length = 0;
        U16_APPEND_UNSAFE(units.data(), length, character);
    }
    return length;
}

// Marks that do not make another letter of it, by their combining class: the points of Hebrew and
// Arabic, and those above, below and across. The others are vowels and voiced sounds.
bool isLeftOut(UChar32 character) {
    constexpr std::uint8_t kFirstPoint = 10;
    constexpr std::uint8_t kLastPoint = 36;
    constexpr std::uint8_t kFirstOfPlaces = 200;
    const std::uint8_t kind = u_getCombiningClass(character);
    return kind >= kFirstOfPlaces || (kind >= kFirstPoint && kind <= kLastPoint);
}

void appendFolded(std::string& text, UChar32 character) {
    Units parts;
    const int32_t partsLength = decomposed(character, parts);
    for (int32_t at = 0; at < partsLength;) {
        const int32_t begin = at;
        UChar32 part = 0;
        U16_NEXT(parts.data(), at, partsLength, part);
        if (isLeftOut(part)) {
            continue;
        }
        Units units;
        UErrorCode error = U_ZERO_ERROR;
        const int32_t length = u_strFoldCase(units.data(), kMostUnits, parts.data() + begin,
                                             at - begin, U_FOLD_CASE_DEFAULT, &error);
        require(error);
        for (int32_t unit = 0; unit < length;) {
            UChar32 each = 0;
            U16_NEXT(units.data(), unit, length, each);
            appendUtf8(text, each == kDotlessI ? 'i' : each);
        }
    }
}

// Those of two bytes, which are most letters of many languages, are folded once.
std::string_view foldOfTwoBytes(std::uint32_t character) {
    constexpr std::size_t kMostBytes = 7;
    struct Fold {
        std::array<char, kMostBytes> bytes;
        unsigned char length;
    };
    constexpr std::uint32_t kFirst = 0x80;
    constexpr std::uint32_t kEnd = 0x800;
    using Folds = std::array<Fold, kEnd - kFirst>;
    static const Folds kFolds = [] {
        Folds folds{};
        for (std::uint32_t each = kFirst; each < kEnd; ++each) {
            std::string text;
            appendFolded(text, static_cast<UChar32>(each));
            Fold& fold = folds[each - kFirst];
            fold.length = static_cast<unsigned char>(text.copy(fold.bytes.data(), kMostBytes));
        }
        return folds;
    }();
    const Fold& fold = kFolds[character - kFirst];
    return {fold.bytes.data(), fold.length};
}

std::size_t endOfAscii(std::string_view text, std::size_t at) {
    const auto end = std::ranges::find_if_not(text.substr(at), isAscii);
    return at + static_cast<std::size_t>(end - text.substr(at).begin());
}

}  // namespace

std::size_t foldNext(std::string_view text, std::size_t at, std::string& fold) {
    const std::uint32_t lead = static_cast<unsigned char>(text[at]);
    const std::uint32_t next = at + 1 < text.size() ? static_cast<unsigned char>(text[at + 1]) : 0;
    if (lead >= 0xC2 && lead < 0xE0 && (next & 0xC0U) == 0x80) {
        fold += foldOfTwoBytes((lead & 0x1FU) << 6U | (next & 0x3FU));
        return at + 2;
    }
    std::size_t end = at;
    const UChar32 character = nextCharacter(text, end);
    if (character < 0) {
        fold += "\ufffd";
    } else if (character < 0x80) {
        fold += foldedAscii(text[at]);
    } else if (character >= kFirstIdeograph && character < kEndOfIdeographs) {
        fold.append(text, at, end - at);
    } else {
        appendFolded(fold, character);
    }
    return end;
}

std::string folded(std::string_view text) {
    std::string fold;
    fold.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        // In one go, which is ten times as fast as one by one.
        const std::size_t end = endOfAscii(text, at);
        const auto begin = static_cast<std::ptrdiff_t>(fold.size());
        fold.append(text, at, end - at);
        std::transform(fold.begin() + begin, fold.end(), fold.begin() + begin, foldedAscii);
        at = end < text.size() ? foldNext(text, end, fold) : end;
    }
    return fold;
}

std::vector<std::string> foldedWords(std::string_view text) {
    const std::string fold = folded(text);
    std::vector<std::string> words(1);
    for (std::size_t at = 0; at < fold.size();) {
        const std::size_t begin = at;
        if (u_isUWhiteSpace(nextCharacter(fold, at)) != 0) {
            words.emplace_back();
        } else {
            words.back().append(fold, begin, at - begin);
        }
    }
    std::erase(words, std::string());
    return words;
}

bool holdsAll(std::string_view fold, const std::vector<std::string>& words) {
    return std::ranges::all_of(words, [fold](const std::string& word) {
        return fold.find(word) != std::string_view::npos;
    });
}

std::size_t originOfFolded(std::string_view text, std::size_t offset) {
    std::string fold;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = endOfAscii(text, at);
        if (end - at > offset) {
            return at + offset;
        }
        offset -= end - at;
        if (end == text.size()) {
            break;
        }
        fold.clear();
        at = foldNext(text, end, fold);
        if (fold.size() > offset) {
            return end;
        }
        offset -= fold.size();
    }
    return text.size();
}

}  // namespace hearthmark::base
