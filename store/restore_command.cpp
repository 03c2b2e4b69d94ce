// SPDX-License-Identifier: MIT
#include "store/restore_command.h"

#include <sstream>

#include "objectstore/store_file.h"

namespace hearthmark::store {

namespace {

// For a shell.
std::string quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + '\'';
}

}  // namespace

std::string restoreCommand(const RestoreSteps& restore) {
    const std::filesystem::path directory = restore.store.parent_path();
    const std::string store = restore.store.filename();
    std::ostringstream command;
    command << "cd " << quoted(directory.string()) << " && { [ \"$(stat -L -c '%i %s %Y' " << store
            << ")\" = '" << objectstore::storeFileIdentity(restore.store)
            << "' ] || { echo 'Nothing was changed: the damaged store is not there any more.'; "
               "false; }; } && mkdir -p "
            << restore.folder;
    if (restore.backup) {
        command << " && { cp -f " << restore.backup->lexically_relative(directory).string() << ' '
                << restore.draft << " && sync " << restore.draft << " || { rm -f " << restore.draft
                << "; false; }; }";
    }
    command << " && mv -f --backup=numbered " << store << "* " << restore.folder;
    if (restore.backup) {
        command << " && mv -f " << restore.draft << ' ' << store;
    }
    command << " && sync .";
    return command.str();
}

}  // namespace hearthmark::store
