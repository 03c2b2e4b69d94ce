// SPDX-License-Identifier: MIT
#include "base/uuid.h"

#include <array>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_hash.hpp>
#include <cstdint>

namespace hearthmark::base {

namespace {

constexpr std::size_t kTextLength = 36;

constexpr bool isHyphenPlace(std::size_t place) {
    return place == 8 || place == 13 || place == 18 || place == 23;
}

constexpr std::uint8_t kNoDigit = 0xFF;

// The value of each character as a hexadecimal digit.
constexpr auto kHexValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(kNoDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        values.at(static_cast<unsigned char>("0123456789ABCDEF"[value])) = value;
        values.at(static_cast<unsigned char>("0123456789abcdef"[value])) = value;
    }
    return values;
}();

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
        const std::uint8_t value = kHexValues[static_cast<unsigned char>(text[place])];
        if (value == kNoDigit) {
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
