// SPDX-License-Identifier: MIT
#include "store/store_fault.h"

#include <cstdint>
#include <system_error>

namespace hearthmark::store {

namespace {

using Cause = objectstore::StoreError::Cause;

// What SQLite needs to open a file: the index of its log.
constexpr std::uintmax_t kLeastRoom = 65536;

bool hasNoRoom(const std::filesystem::path& directory) {
    std::error_code error;
    const auto room = std::filesystem::space(directory, error);
    return !error && room.available < kLeastRoom;
}

}  // namespace

StoreFault faultOf(const objectstore::StoreError& error, const std::filesystem::path& directory) {
    Cause cause = error.cause();
    // On a full disk SQLite also fails to make its files, without a word about the room.
    if ((cause == Cause::inputOutput || cause == Cause::noAccess) && hasNoRoom(directory)) {
        cause = Cause::diskFull;
    }
    switch (cause) {
        case Cause::damaged:
            return {"The file is damaged.", ""};
        case Cause::newerVersion:
            return {"A newer version of Hearthmark wrote the file.",
                    "Your data are as they were: start that version, or install it again."};
        case Cause::unknownVersion:
            return {
                "The file does not say which version of Hearthmark it is of: another program "
                "has changed that.",
                "It was left as it is. Undo what that program did, as by PRAGMA user_version = "
                "1 in an SQLite tool, or move the file to another folder and restore a "
                "backup."};
        case Cause::otherApplication:
            return {"Another program made the file.",
                    "It was left as it is: move it to another folder and start Hearthmark again."};
        case Cause::diskFull:
            return {
                "The disk is full.",
                "Your data are as they were: make room on the disk and start Hearthmark again."};
        case Cause::held:
            return {"Another program keeps the file locked.",
                    "Your data are as they were: close that program and start Hearthmark again."};
        case Cause::noAccess:
            return {"Hearthmark may not read and write there.",
                    "Your data are as they were: see to it that the folder and its files belong to "
                    "you, that you may write to them, and that the disk is not mounted for reading "
                    "only."};
        case Cause::noPlace:
            return {"The path leads nowhere.",
                    "Look where its links lead, whether that disk is mounted, and what "
                    "XDG_DATA_HOME says. Nothing was changed."};
        case Cause::notAFile:
            return {"A folder, or something else that is not a file, has the name of the store.",
                    "It was left there: move it to another folder and start Hearthmark again."};
        case Cause::inputOutput:
            return {"The disk does not read or write.",
                    "Nothing is known against your data: look after the disk and its connection, "
                    "and copy the folder to another one before anything else."};
        case Cause::other:
            break;
    }
    return {"", ""};
}

}  // namespace hearthmark::store
