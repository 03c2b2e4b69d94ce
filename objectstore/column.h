// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/uuid.h"
#include "objectstore/row_reader.h"
#include "objectstore/value.h"

namespace hearthmark::objectstore {

// How an attribute of type T is declared, read and written. What a column cannot mean (a text in a
// REAL column, an identifier that is none, a date at infinity) reads as absent, and where T has no
// absence as kUnreadable; it stays in the file until the attribute is changed.
template <class T>
struct Column;

template <>
struct Column<std::optional<base::Uuid>> {
    static constexpr const char* kDeclaration = "TEXT";
    static std::optional<base::Uuid> read(const RowReader& row, int column) {
        const auto text = row.text(column);
        return text ? base::Uuid::fromText(*text) : std::nullopt;
    }
    static Value value(const std::optional<base::Uuid>& uuid) {
        return uuid ? Value(uuid->text()) : Value();
    }
};

template <>
struct Column<base::OptionalDate> {
    static constexpr const char* kDeclaration = "REAL";
    static std::optional<base::Date> read(const RowReader& row, int column) {
        const auto seconds = row.real(column);
        if (!seconds || !std::isfinite(*seconds)) {
            return std::nullopt;
        }
        return base::Date(base::Seconds(*seconds));
    }
    static Value value(const std::optional<base::Date>& date) {
        return date ? Value(date->sinceReferenceDate().count()) : Value();
    }
};

template <>
struct Column<std::optional<std::string>> {
    static constexpr const char* kDeclaration = "TEXT";
    static std::optional<std::string> read(const RowReader& row, int column) {
        const auto text = row.text(column);
        return text ? std::optional(std::string(*text)) : std::nullopt;
    }
    static Value value(const std::optional<std::string>& text) {
        return text ? Value(*text) : Value();
    }
};

template <>
struct Column<base::Seconds> {
    static constexpr const char* kDeclaration = "REAL NOT NULL";
    static constexpr base::Seconds kUnreadable{0};
    static base::Seconds read(const RowReader& row, int column) {
        const auto seconds = row.real(column);
        return seconds ? base::Seconds(*seconds) : kUnreadable;
    }
    static Value value(base::Seconds seconds) { return seconds.count(); }
};

template <>
struct Column<std::int16_t> {
    static constexpr const char* kDeclaration = "INTEGER NOT NULL";
    static constexpr std::int16_t kUnreadable = -1;
    static std::int16_t read(const RowReader& row, int column) {
        const auto number = row.integer(column);
        using Limits = std::numeric_limits<std::int16_t>;
        const bool fits = number && *number >= Limits::min() && *number <= Limits::max();
        return fits ? static_cast<std::int16_t>(*number) : kUnreadable;
    }
    static Value value(std::int16_t number) { return std::int64_t{number}; }
};

}  // namespace hearthmark::objectstore
