// SPDX-License-Identifier: MIT
#include "base/uuid.h"

#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_hash.hpp>
#include <cstdint>

namespace hearthmark::base {

namespace {

constexpr std::size_t kTextLength = 36;

constexpr bool isHyphenPlace(std::size_t place) {
    return place == 8 || place == 13 || place == 18 || place == 23;
}

// The value of a hexadecimal digit, or -1.
constexpr int hexValue(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

Uuid Uuid::random() {
    // Draws from the operating system each time; identifiers are made at the pace of a person.
    return Uuid(boost::uuids::random_generator_pure()());
}

// By hand, as is text(): Boost's reader accepts braces and missing hyphens and reports by
// exception, its writer is slower, and a store is read and exported with a call for each row.
std::optional<Uuid> Uuid::fromText(std::string_view text) {
    if (text.size() != kTextLength) {
        return std::nullopt;
    }
    boost::uuids::uuid bytes{};
    std::size_t digits = 0;
    for (std::size_t place = 0; place < kTextLength; ++place) {
        if (isHyphenPlace(place)) {
            if (text[place] != '-') {
                return std::nullopt;
            }
            continue;
        }
        const int value = hexValue(text[place]);
        if (value < 0) {
            return std::nullopt;
        }
        auto& byte = bytes.data[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
    }
    return Uuid(bytes);
}

std::string Uuid::text() const {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    std::string text(kTextLength, '-');
    std::size_t place = 0;
    for (const std::uint8_t byte : bytes_) {
        place += isHyphenPlace(place) ? 1 : 0;
        text[place++] = kHexDigits[byte / 16];
        text[place++] = kHexDigits[byte % 16];
    }
    return text;
}

std::size_t Uuid::hash() const {
    return boost::uuids::hash_value(bytes_);
}

}  // namespace hearthmark::base
