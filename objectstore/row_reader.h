// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

struct sqlite3_stmt;

namespace hearthmark::objectstore {

// The row that a query stands on. A column that holds another type than the one asked for reads as
// absent: a file may have been edited by others.
class RowReader {
 public:
    explicit RowReader(sqlite3_stmt* statement) : statement_(statement) {}

    std::optional<std::int64_t> integer(int column) const;
    // An INTEGER reads as REAL too. Not finite where the file says so.
    std::optional<double> real(int column) const;
    // The bytes as they are stored, valid until the next row.
    std::optional<std::string_view> text(int column) const;

 private:
    sqlite3_stmt* statement_;
};

}  // namespace hearthmark::objectstore
