// SPDX-License-Identifier: MIT
#include "store/persistent_container_factory.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

#include "store/hearthmark_model.h"
#include "store/unresolved_error.h"

namespace hearthmark::store {

namespace {

constexpr auto kContainerName = "Hearthmark";
// Part of the message that people search for and report; it does not move with the code.
constexpr auto kLoadLocation = "Hearthmark/PersistentContainerFactory:20";

// An absolute path in the environment; anything else counts as unset.
std::filesystem::path pathFromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    const std::filesystem::path path = value != nullptr ? value : "";
    return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path homeDirectory() {
    std::filesystem::path home = pathFromEnvironment("HOME");
    if (!home.empty()) {
        return home;
    }
    const passwd* account = ::getpwuid(::getuid());
    return account != nullptr ? account->pw_dir : "/";
}

std::string adviceOf(const StoreBackups& backups) {
    const auto backup = backups.newestGood();
    const std::string setAside = backups.setAsideCommand();
    if (!backup) {
        return "\nThere is no good backup. This command sets aside what is there, for a new "
               "beginning:"
               "\n    " +
               setAside;
    }
    return "\nThe newest good backup is " + backup->file.string() +
           ". This command restores it, and sets aside what is there:\n    " + setAside + " && " +
           backups.restoreCommand(*backup);
}

}  // namespace

PersistentContainerFactory::PersistentContainerFactory(std::filesystem::path directory,
                                                       base::FatalErrorHandler fatal)
    : directory_(std::move(directory)), fatal_(std::move(fatal)) {}

PersistentContainerFactory::PersistentContainerFactory(std::shared_ptr<const StoreBackups> backups,
                                                       base::FatalErrorHandler fatal)
    : directory_(backups->storeDirectory()),
      backups_(std::move(backups)),
      fatal_(std::move(fatal)) {}

std::shared_ptr<objectstore::PersistentContainer> PersistentContainerFactory::makeContainer()
    const {
    auto container = std::make_shared<objectstore::PersistentContainer>(
        kContainerName, hearthmarkModel(), directory_);
    try {
        container->loadPersistentStores();
    } catch (const objectstore::StoreError& error) {
        fatal_(unresolvedLoadError(error) + (backups_ ? adviceOf(*backups_) : ""));
    }
    if (backups_) {
        backups_->keepDaily();
    }
    return container;
}

std::string unresolvedLoadError(const objectstore::StoreError& error) {
    return unresolvedError(kLoadLocation, error);
}

std::filesystem::path storeDirectory() {
    std::filesystem::path data = pathFromEnvironment("XDG_DATA_HOME");
    if (data.empty()) {
        data = homeDirectory() / ".local" / "share";
    }
    return data / kContainerName;
}

}  // namespace hearthmark::store
