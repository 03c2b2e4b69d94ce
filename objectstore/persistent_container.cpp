// SPDX-License-Identifier: MIT
#include "objectstore/persistent_container.h"

#include <utility>

#include "objectstore/sqlite_store.h"

namespace hearthmark::objectstore {

PersistentContainer::PersistentContainer(const std::string& name, Model model,
                                         const std::optional<std::filesystem::path>& directory)
    : model_(std::move(model)) {
    if (directory) {
        file_ = *directory / (name + ".sqlite");
    }
}

void PersistentContainer::loadPersistentStores(const std::function<void()>& beforeUpgrade) {
    viewContext_ = std::make_unique<ManagedObjectContext>(
        std::make_unique<SqliteStore>(file_, model_, beforeUpgrade), model_);
}

}  // namespace hearthmark::objectstore
