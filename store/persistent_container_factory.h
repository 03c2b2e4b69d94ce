// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "base/fatal_error.h"
#include "objectstore/persistent_container.h"
#include "objectstore/store_error.h"
#include "store/store_backups.h"

namespace hearthmark::store {

// Makes the container that everything built at start-up shares.
class PersistentContainerFactoryProtocol {
 public:
    virtual ~PersistentContainerFactoryProtocol() = default;

    virtual std::shared_ptr<objectstore::PersistentContainer> makeContainer() const = 0;
};

// The one of the running program: the store file in a directory. A store that cannot be loaded ends
// the program, with what is to be done in its message, and the newest good backup where the store
// is damaged; there is no retry and no substitute. One that can is backed up, before anything
// changes it.
class PersistentContainerFactory final : public PersistentContainerFactoryProtocol {
 public:
    using Tell = std::function<void(const StoreNotice&)>;

    // Without backups none is made, and none is named. `tell` shows the person what does not end
    // the program.
    PersistentContainerFactory(std::filesystem::path directory, base::FatalErrorHandler fatal);
    PersistentContainerFactory(std::shared_ptr<const StoreBackups> backups,
                               base::FatalErrorHandler fatal, Tell tell = {});

    std::shared_ptr<objectstore::PersistentContainer> makeContainer() const override;

 private:
    void load(objectstore::PersistentContainer& container) const;
    void tell(const StoreNotice& notice) const;

    std::filesystem::path directory_;
    std::shared_ptr<const StoreBackups> backups_;
    base::FatalErrorHandler fatal_;
    Tell tell_;
};

// What is said before the program ends because its store in the directory cannot be loaded: the
// error, and on a line of its own what is to be done about it, where that is known.
std::string loadFailure(const objectstore::StoreError& error,
                        const std::filesystem::path& directory);

// Where the store of the person who runs the program lives: "Hearthmark" in the data directory of
// the XDG base directory standard, version 0.8.
std::filesystem::path storeDirectory();

// The store in such a directory.
std::filesystem::path storeFile(const std::filesystem::path& directory);

}  // namespace hearthmark::store
