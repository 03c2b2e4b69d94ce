// SPDX-License-Identifier: MIT
#include "objectstore/row_reader.h"

#include <sqlite3.h>

namespace hearthmark::objectstore {

std::optional<std::int64_t> RowReader::integer(int column) const {
    if (sqlite3_column_type(statement_, column) != SQLITE_INTEGER) {
        return std::nullopt;
    }
    return sqlite3_column_int64(statement_, column);
}

std::optional<double> RowReader::real(int column) const {
    const int type = sqlite3_column_type(statement_, column);
    if (type != SQLITE_FLOAT && type != SQLITE_INTEGER) {
        return std::nullopt;
    }
    return sqlite3_column_double(statement_, column);
}

std::optional<std::string_view> RowReader::text(int column) const {
    if (sqlite3_column_type(statement_, column) != SQLITE_TEXT) {
        return std::nullopt;
    }
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return std::string_view(bytes,
                            static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
}

}  // namespace hearthmark::objectstore
