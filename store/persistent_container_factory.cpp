// SPDX-License-Identifier: MIT
#include "store/persistent_container_factory.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <utility>

#include "store/hearthmark_model.h"
#include "store/store_fault.h"
#include "store/unresolved_error.h"

namespace hearthmark::store {

namespace {

using objectstore::StoreError;

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

// Where the store is damaged, and there only: whoever follows it lets go of what is there.
std::string adviceOf(const StoreBackups& backups) {
    try {
        const auto backup = backups.newestGood();
        return (backup ? "\nThe newest good backup is " + backup->file.string() +
                             ". This command restores it, and sets aside what is there:"
                       : "\nThere is no good backup. This command sets aside what is there, for a "
                         "new beginning:") +
               "\n    " + backups.restoreCommand(backup);
    } catch (const StoreError& error) {
        return std::string("\nThe backups cannot be read: ") + error.what() +
               ". See to it that they can, and start Hearthmark again; it then names the newest "
               "good one.";
    }
}

// A failed backup says nothing against the store.
void keepBeforeUpgrade(const StoreBackups& backups) {
    try {
        backups.keepBeforeUpgrade();
    } catch (const StoreError& error) {
        const bool isDamage = error.cause() == StoreError::Cause::damaged;
        throw StoreError(
            std::string("The store has to be brought to this version, which is done only after a "
                        "backup, and none could be made: ") +
                error.what(),
            error.code(), error.extendedCode(), error.statement(),
            isDamage ? StoreError::Cause::other : error.cause());
    }
}

const StoreNotice kBegunAnew{
    "Hearthmark has begun a new store",
    "It found none in its folder, but there are backups. If that surprises you: Restore from a "
    "backup… in the application menu brings back your data as they were on a day."};
const StoreNotice kRestoreCompleted{"Hearthmark has completed a restore",
                                    "It had been interrupted."};

}  // namespace

PersistentContainerFactory::PersistentContainerFactory(std::filesystem::path directory,
                                                       base::FatalErrorHandler fatal)
    : directory_(std::move(directory)), fatal_(std::move(fatal)) {}

PersistentContainerFactory::PersistentContainerFactory(std::shared_ptr<const StoreBackups> backups,
                                                       base::FatalErrorHandler fatal, Tell tell)
    : directory_(backups->storeDirectory()),
      backups_(std::move(backups)),
      fatal_(std::move(fatal)),
      tell_(std::move(tell)) {}

std::shared_ptr<objectstore::PersistentContainer> PersistentContainerFactory::makeContainer()
    const {
    auto container = std::make_shared<objectstore::PersistentContainer>(
        kContainerName, hearthmarkModel(), directory_);
    try {
        load(*container);
    } catch (const StoreError& error) {
        const bool isDamage = error.cause() == StoreError::Cause::damaged;
        fatal_(loadFailure(error, directory_) + (backups_ && isDamage ? adviceOf(*backups_) : ""));
    } catch (const std::exception& error) {  // such as a want of memory
        fatal_(loadFailure({error.what(), 0, 0, "load", StoreError::Cause::other}, directory_));
    }
    return container;
}

void PersistentContainerFactory::load(objectstore::PersistentContainer& container) const {
    if (!backups_) {
        container.loadPersistentStores();
        return;
    }
    const StoreBackups::Beginning beginning = backups_->beginning();
    if (beginning == StoreBackups::Beginning::emptied) {
        throw StoreError("The file is empty: " + container.file()->string(), 0, 0, "stat",
                         StoreError::Cause::damaged);
    }
    if (beginning == StoreBackups::Beginning::restoreInterrupted) {
        backups_->completeRestore();
        tell(kRestoreCompleted);
    }
    container.loadPersistentStores([this] { keepBeforeUpgrade(*backups_); });
    backups_->forgetRestore();
    if (beginning == StoreBackups::Beginning::withoutStore) {
        tell(kBegunAnew);
    }
    const auto failure = backups_->keepDaily();
    if (failure && tell_) {
        tell_(*failure);
    }
}

void PersistentContainerFactory::tell(const StoreNotice& notice) const {
    std::cerr << notice.title << ": " << notice.body << std::endl;
    if (tell_) {
        tell_(notice);
    }
}

std::string loadFailure(const StoreError& error, const std::filesystem::path& directory) {
    const StoreFault fault = faultOf(error, directory);
    std::string message = unresolvedError(kLoadLocation, error);
    if (!fault.remedy.empty()) {
        message.append("\n").append(fault.reason).append(" ").append(fault.remedy);
    }
    return message;
}

std::filesystem::path storeDirectory() {
    std::filesystem::path data = pathFromEnvironment("XDG_DATA_HOME");
    if (data.empty()) {
        data = homeDirectory() / ".local" / "share";
    }
    return data / kContainerName;
}

std::filesystem::path storeFile(const std::filesystem::path& directory) {
    return directory / (std::string(kContainerName) + ".sqlite");
}

}  // namespace hearthmark::store
