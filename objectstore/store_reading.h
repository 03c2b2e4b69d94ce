// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "objectstore/model.h"
#include "objectstore/row_reader.h"
#include "objectstore/value.h"

// NOLINTNEXTLINE(readability-identifier-naming): the library's
namespace SQLite {
class Database;
}

namespace hearthmark::objectstore {

// A look at a store by somebody who has not opened it, while others may: a few queries without the
// object graph. It writes nothing, not even the index of the log, leaves no file behind, and keeps
// nobody waiting. All that it reads is as of its first query; it is to be let go soon, since a log
// cannot be folded into the file while somebody reads. Failures throw StoreError.
class StoreReading {
 public:
    // Refuses what is another application's, and a later version of the model.
    StoreReading(const std::filesystem::path& file, const Model& model);
    StoreReading(const StoreReading&) = delete;
    StoreReading& operator=(const StoreReading&) = delete;
    ~StoreReading();

    // Of the file, which may be an older one: then it lacks the columns that came later.
    std::int32_t version() const { return version_; }

    // Calls `visit` for every row of the result.
    void read(const std::string& query, const std::vector<Value>& parameters,
              const std::function<void(const RowReader&)>& visit);

 private:
    std::unique_ptr<SQLite::Database> database_;
    std::int32_t version_;
};

}  // namespace hearthmark::objectstore
