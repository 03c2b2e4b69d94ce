// SPDX-License-Identifier: MIT
#include "objectstore/store_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <string>
#include <system_error>

#include "objectstore/file_descriptor.h"
#include "objectstore/store_error.h"

namespace hearthmark::objectstore {

namespace {

constexpr mode_t kFileMode = 0600;
constexpr mode_t kDirectoryMode = 0700;
// What SQLite calls the files that it keeps beside its own.
constexpr std::array kJournals{"-wal", "-shm", "-journal"};

[[noreturn]] void fail(const std::string& call, const std::filesystem::path& path) {
    throw StoreError::ofCall(call, path, errno);
}

// Absent where nothing is there. The calls of the standard library either throw what nobody above
// catches, or take a directory that cannot be searched for an empty one.
std::optional<struct stat> statusOf(const std::filesystem::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) {
        return status;
    }
    if (errno != ENOENT) {
        fail("stat", path);
    }
    return std::nullopt;
}

std::filesystem::path sibling(const std::filesystem::path& file, const std::string& suffix) {
    return file.string() + suffix;
}

// SQLite follows a link to the file, and keeps its journals where that leads.
std::filesystem::path journalOf(const std::filesystem::path& file, const char* suffix) {
    std::error_code none;  // no such file yet
    const std::filesystem::path target = std::filesystem::canonical(file, none);
    return sibling(none ? file : target, suffix);
}

// A name that nothing has.
std::filesystem::path orphanOf(const std::filesystem::path& journal) {
    std::filesystem::path orphan = sibling(journal, ".orphaned");
    for (int number = 2; statusOf(orphan); ++number) {
        orphan = sibling(journal, ".orphaned-" + std::to_string(number));
    }
    return orphan;
}

void moveFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
        fail("rename", from);
    }
}

void flushDirectory(const std::filesystem::path& directory) {
    FileDescriptor(directory, O_RDONLY | O_DIRECTORY).flush();
}

}  // namespace

void makeStoreDirectory(const std::filesystem::path& directory) {
    struct stat status {};
    if (directory.empty() || (::stat(directory.c_str(), &status) == 0 && S_ISDIR(status.st_mode))) {
        return;
    }
    if (directory.has_relative_path()) {
        makeStoreDirectory(directory.parent_path());
    }
    if (::mkdir(directory.c_str(), kDirectoryMode) == 0) {
        flushDirectory(directory.parent_path());
    } else if (errno != EEXIST) {
        fail("mkdir", directory);
    }
}

StoreFileState storeFileState(const std::filesystem::path& file) {
    const auto status = statusOf(file);
    if (!status) {
        struct stat link {};
        if (::lstat(file.c_str(), &link) == 0) {
            throw StoreError::ofCall("stat", file, ENOENT);
        }
        return StoreFileState::missing;
    }
    if (!S_ISREG(status->st_mode)) {
        throw StoreError::ofCall("stat", file, EISDIR);
    }
    return status->st_size > 0 ? StoreFileState::present : StoreFileState::empty;
}

std::string storeFileIdentity(const std::filesystem::path& file) {
    const auto status = statusOf(file);
    return status ? std::to_string(status->st_ino) + ' ' + std::to_string(status->st_size) + ' ' +
                        std::to_string(status->st_mtime)
                  : "";
}

bool isThere(const std::filesystem::path& file) {
    return statusOf(file).has_value();
}

bool hasWriteAheadLog(const std::filesystem::path& file) {
    return statusOf(journalOf(file, "-wal")).has_value();
}

bool hasLogIndex(const std::filesystem::path& file) {
    return statusOf(journalOf(file, "-shm")).has_value();
}

bool hasRollbackJournal(const std::filesystem::path& file) {
    const auto status = statusOf(journalOf(file, "-journal"));
    return status && status->st_size > 0;
}

void createStoreFile(const std::filesystem::path& file,
                     const std::function<void(const std::filesystem::path&)>& fill) {
    const std::filesystem::path directory = file.parent_path();
    makeStoreDirectory(directory);
    setAsideJournals(file);
    const std::filesystem::path draft = sibling(file, ".new");
    removeStoreFile(draft);
    { const FileDescriptor made(draft, O_CREAT | O_EXCL | O_WRONLY, kFileMode); }
    try {
        fill(draft);
        FileDescriptor(draft, O_RDONLY).flush();
        moveStoreFile(draft, file);
    } catch (...) {
        // On a full disk they take what others need.
        ::unlink(draft.c_str());
        for (const char* suffix : kJournals) {
            ::unlink(sibling(draft, suffix).c_str());
        }
        throw;
    }
}

void moveStoreFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    moveFile(from, to);
    flushDirectory(to.parent_path());
}

void removeStoreFile(const std::filesystem::path& file) {
    if (::unlink(file.c_str()) != 0 && errno != ENOENT) {
        fail("unlink", file);
    }
}

void setAsideJournals(const std::filesystem::path& file) {
    for (const char* suffix : {"-wal", "-journal"}) {
        const std::filesystem::path journal = sibling(file, suffix);
        if (isThere(journal)) {
            moveFile(journal, orphanOf(journal));
        }
    }
}

void removeJournals(const std::filesystem::path& file) {
    for (const char* suffix : kJournals) {
        removeStoreFile(sibling(file, suffix));
    }
    flushDirectory(file.parent_path());
}

}  // namespace hearthmark::objectstore
