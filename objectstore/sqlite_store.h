// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "objectstore/model.h"
#include "objectstore/value.h"

namespace hearthmark::objectstore {

class RowReader;

// What a save does to one row.
struct RowChange {
    enum class Kind { insert, update, remove };

    Kind kind;
    const EntityDescription* entity;
    RowKey key;
    // Column numbers count the attributes and then the references of the entity. All of them for an
    // insertion, those that differ for an update.
    std::vector<std::pair<std::size_t, Value>> columns;
};

// The SQLite database of one model. Every operation throws StoreError where the database fails.
class SqliteStore {
 public:
    // Opens the file for reading, or makes it with mode 0600 in a directory of mode 0700; without a
    // path the store lives in memory. A file that is another application's, or of a later version
    // of the model, is refused and left byte for byte as it was. Before one of an older version is
    // changed it is checked and `beforeUpgrade` is called; where that throws, it stays as it was.
    SqliteStore(const std::optional<std::filesystem::path>& file, const Model& model,
                const std::function<void()>& beforeUpgrade = {});
    SqliteStore(const SqliteStore&) = delete;
    SqliteStore& operator=(const SqliteStore&) = delete;
    ~SqliteStore();

    // Calls `visit` for every row of the entity, ascending by key. Column 0 is the key; the
    // attributes and the references follow.
    void read(const EntityDescription& entity, const std::function<void(const RowReader&)>& visit);

    // Called once, between the reading and the first write. Throws where the file is corrupt, which
    // is looked at on a thread of its own meanwhile, and leaves it byte for byte as it was.
    void beginWriting();

    // Applies all changes in one transaction: after it returns they are on the disk, and if it
    // throws none is. An empty list touches nothing.
    void write(const std::vector<RowChange>& changes);

 private:
    class Connection;

    std::optional<std::filesystem::path> file_;
    std::future<void> integrity_;
    std::unique_ptr<Connection> connection_;
};

}  // namespace hearthmark::objectstore
