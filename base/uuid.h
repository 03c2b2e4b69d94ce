// SPDX-License-Identifier: MIT
#pragma once

#include <boost/uuid/uuid.hpp>
#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace hearthmark::base {

// A universally unique identifier (RFC 9562).
class Uuid {
 public:
    // All bits zero.
    Uuid() : bytes_{} {}

    // A new random one (version 4).
    static Uuid random();

    // Reads the 8-4-4-4-12 form in either letter case; anything else is absent.
    static std::optional<Uuid> fromText(std::string_view text);

    // 36 characters, upper case.
    std::string text() const;

    std::size_t hash() const;

    friend bool operator==(const Uuid&, const Uuid&) = default;
    friend std::strong_ordering operator<=>(const Uuid& a, const Uuid& b) {
        if (a.bytes_ == b.bytes_) {
            return std::strong_ordering::equal;
        }
        return a.bytes_ < b.bytes_ ? std::strong_ordering::less : std::strong_ordering::greater;
    }

 private:
    explicit Uuid(const boost::uuids::uuid& bytes) : bytes_(bytes) {}

    boost::uuids::uuid bytes_;
};

}  // namespace hearthmark::base

template <>
struct std::hash<hearthmark::base::Uuid> {
    std::size_t operator()(const hearthmark::base::Uuid& uuid) const { return uuid.hash(); }
};
