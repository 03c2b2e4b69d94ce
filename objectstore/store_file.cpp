// SPDX-License-Identifier: MIT
#include "objectstore/store_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <system_error>

#include "objectstore/store_error.h"

namespace hearthmark::objectstore {

namespace {

constexpr mode_t kFileMode = 0600;
constexpr mode_t kDirectoryMode = 0700;
// What SQLite calls the files that it keeps beside its own.
constexpr std::array kJournals{"-wal", "-shm", "-journal"};

[[noreturn]] void fail(const std::string& call, const std::filesystem::path& path) {
    const int error = errno;
    throw StoreError(std::generic_category().message(error) + ": " + path.string(), error, error,
                     call);
}

class Descriptor {
 public:
    Descriptor(const std::filesystem::path& path, int flags)
        : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, kFileMode)) {
        if (descriptor_ < 0) {
            fail("open", path);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { ::close(descriptor_); }

    void flush(const std::filesystem::path& path) const {
        if (::fsync(descriptor_) != 0) {
            fail("fsync", path);
        }
    }

 private:
    int descriptor_;
};

std::filesystem::path sibling(const std::filesystem::path& file, const char* suffix) {
    return file.string() + suffix;
}

void moveFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
        fail("rename", from);
    }
}

void flushDirectory(const std::filesystem::path& directory) {
    Descriptor(directory, O_RDONLY | O_DIRECTORY).flush(directory);
}

}  // namespace

void makeStoreDirectory(const std::filesystem::path& directory) {
    if (directory.empty() || std::filesystem::is_directory(directory)) {
        return;
    }
    makeStoreDirectory(directory.parent_path());
    if (::mkdir(directory.c_str(), kDirectoryMode) == 0) {
        flushDirectory(directory.parent_path());
    } else if (errno != EEXIST) {
        fail("mkdir", directory);
    }
}

bool storeFileExists(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        if (errno == ENOENT) {
            return false;
        }
        fail("stat", file);
    }
    return !S_ISREG(status.st_mode) || status.st_size > 0;
}

bool hasWriteAheadLog(const std::filesystem::path& file) {
    return std::filesystem::exists(sibling(file, "-wal"));
}

void createStoreFile(const std::filesystem::path& file,
                     const std::function<void(const std::filesystem::path&)>& fill) {
    const std::filesystem::path directory = file.parent_path();
    makeStoreDirectory(directory);
    // A log without its file must not be replayed over a new one; it is kept in case it is missed.
    if (hasWriteAheadLog(file)) {
        moveFile(sibling(file, "-wal"), sibling(file, "-wal.orphaned"));
    }
    const std::filesystem::path draft = sibling(file, ".new");
    removeStoreFile(draft);
    { const Descriptor made(draft, O_CREAT | O_EXCL | O_WRONLY); }
    try {
        fill(draft);
        Descriptor(draft, O_RDONLY).flush(draft);
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

void removeJournals(const std::filesystem::path& file) {
    for (const char* suffix : kJournals) {
        removeStoreFile(sibling(file, suffix));
    }
    flushDirectory(file.parent_path());
}

}  // namespace hearthmark::objectstore
