// SPDX-License-Identifier: MIT
#include "export/file_export.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

#include "base/uuid.h"
#include "export/file_fault.h"
#include "objectstore/file_descriptor.h"
#include "objectstore/store_error.h"

namespace hearthmark::exporting {

namespace {

using objectstore::FileDescriptor;
using objectstore::StoreError;

constexpr std::size_t kBlock = 262'144;
constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kModeBits = 07777;
// As many as the kernel follows.
constexpr int kMostLinks = 40;

// Where the links end, whether or not a file is there.
std::filesystem::path targetOf(std::filesystem::path file) {
    for (int followed = 0;; ++followed) {
        struct stat status {};
        if (::lstat(file.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
            return file;
        }
        if (followed == kMostLinks) {
            throw StoreError::ofCall("readlink", file, ELOOP);
        }
        std::error_code error;
        const auto next = std::filesystem::read_symlink(file, error);
        if (error) {
            throw StoreError::ofCall("readlink", file, error.value());
        }
        file = file.parent_path() / next;
    }
}

// The mode of the file that is to be replaced; absent where there is none. A file that nobody may
// write to is not replaced either, though its folder would allow it.
std::optional<mode_t> modeOfReplaced(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            throw StoreError::ofCall("stat", file, errno);
        }
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        throw StoreError::ofCall("stat", file, EISDIR);
    }
    if (::access(file.c_str(), W_OK) != 0) {
        throw StoreError::ofCall("access", file, errno);
    }
    return status.st_mode & kModeBits;
}

// A file beside the other that goes with this object, unless it has taken the other's place.
class Draft {
 public:
    explicit Draft(const std::filesystem::path& folder)
        : path_(folder / (".hearthmark-" + base::Uuid::random().text())),
          file_(path_, O_CREAT | O_EXCL | O_WRONLY, kNewFileMode) {}
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() {
        if (!path_.empty()) {
            ::unlink(path_.c_str());
        }
    }

    const FileDescriptor& file() const { return file_; }

    void moveTo(const std::filesystem::path& place) {
        if (::rename(path_.c_str(), place.c_str()) != 0) {
            throw StoreError::ofCall("rename", place, errno);
        }
        path_.clear();
    }

 private:
    std::filesystem::path path_;
    FileDescriptor file_;
};

// Whether all of it was written, and nobody has cancelled.
bool fill(const FileDescriptor& file, TextParts& text, const FileWork& work) {
    const auto goesOn = [&work] { return !work.isCancelled || !work.isCancelled(); };
    std::string block;
    for (bool isMore = true; isMore;) {
        if (!goesOn()) {
            return false;
        }
        isMore = text.appendNext(block);
        if (block.size() >= kBlock || !isMore) {
            file.write(block);
            block.clear();
            if (work.tellProgress) {
                work.tellProgress(text.shareDone());
            }
        }
    }
    file.flush();
    return goesOn();
}

// Some file systems cannot have a folder written to the disk, and say so.
void flushFolder(const FileDescriptor& folder) {
    try {
        folder.flush();
    } catch (const StoreError& error) {
        if (error.code() != EINVAL && error.code() != ENOTSUP) {
            throw;
        }
    }
}

}  // namespace

FileExport writeFile(const std::filesystem::path& file, TextParts& text, const FileWork& work) {
    try {
        const std::filesystem::path target = targetOf(file);
        const std::optional<mode_t> mode = modeOfReplaced(target);
        const std::filesystem::path parent = target.parent_path();
        // Opened before, so that what it has against that is known before the file is replaced.
        const FileDescriptor folder(parent.empty() ? "." : parent, O_RDONLY | O_DIRECTORY);
        Draft draft(parent);
        if (mode) {
            draft.file().setMode(*mode);
        }
        if (!fill(draft.file(), text, work)) {
            return {.outcome = FileExport::Outcome::cancelled, .reason = {}};
        }
        draft.moveTo(target);
        flushFolder(folder);
        return {};
    } catch (const StoreError& error) {
        return {.outcome = FileExport::Outcome::failed, .reason = reasonOf(error, file)};
    }
}

}  // namespace hearthmark::exporting
