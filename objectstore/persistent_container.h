// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "objectstore/managed_object_context.h"
#include "objectstore/model.h"

namespace hearthmark::objectstore {

// A store by name, and its one context.
class PersistentContainer {
 public:
    // Keeps the store in `<directory>/<name>.sqlite`; without a directory in memory.
    PersistentContainer(const std::string& name, Model model,
                        const std::optional<std::filesystem::path>& directory);

    // Opens or makes the store and loads it. Called once, before anything else. Throws StoreError.
    // `beforeUpgrade` is called before the tables of a file of an older version change.
    void loadPersistentStores(const std::function<void()>& beforeUpgrade = {});

    ManagedObjectContext& viewContext() { return *viewContext_; }

    // Absent for a store in memory.
    const std::optional<std::filesystem::path>& file() const { return file_; }

 private:
    Model model_;
    std::optional<std::filesystem::path> file_;
    std::unique_ptr<ManagedObjectContext> viewContext_;
};

}  // namespace hearthmark::objectstore
