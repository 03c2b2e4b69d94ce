// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <compare>
#include <limits>
#include <optional>

namespace hearthmark::base {

// A length of time. May be negative or not finite where a store file says so.
using Seconds = std::chrono::duration<double>;

// An absolute point in time: seconds since 2001-01-01T00:00:00Z, in memory, in the store and in
// exports alike, since a detour through another epoch would change fractional dates.
class Date {
 public:
    constexpr explicit Date(Seconds sinceReferenceDate) : sinceReferenceDate_(sinceReferenceDate) {}

    constexpr Seconds sinceReferenceDate() const { return sinceReferenceDate_; }

    friend constexpr std::partial_ordering operator<=>(Date a, Date b) {
        return a.sinceReferenceDate_.count() <=> b.sinceReferenceDate_.count();
    }
    friend constexpr bool operator==(Date a, Date b) = default;
    friend constexpr Seconds operator-(Date a, Date b) {
        return a.sinceReferenceDate_ - b.sinceReferenceDate_;
    }
    friend constexpr Date operator+(Date date, Seconds seconds) {
        return Date(date.sinceReferenceDate_ + seconds);
    }

 private:
    Seconds sinceReferenceDate_;
};

// A date or none, in the room of a date. One that is not a number is none.
class OptionalDate {
 public:
    // NOLINTBEGIN(google-explicit-constructor): the same value, only held in less room
    constexpr OptionalDate(std::optional<Date> date = {}) : date_(date.value_or(kNone)) {}
    constexpr operator std::optional<Date>() const {
        return date_ == date_ ? std::optional(date_) : std::nullopt;
    }
    // NOLINTEND(google-explicit-constructor)

 private:
    static constexpr Date kNone{Seconds(std::numeric_limits<double>::quiet_NaN())};

    Date date_;
};

// The day, in UTC, from whose first moment a Date counts.
constexpr std::chrono::sys_days kReferenceDay{std::chrono::year{2001} / 1 / 1};
// From 1970-01-01T00:00:00Z, from where other programs count, to there.
constexpr Seconds kUnixTimeOfReferenceDate = kReferenceDay.time_since_epoch();

}  // namespace hearthmark::base
