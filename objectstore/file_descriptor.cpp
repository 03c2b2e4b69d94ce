// SPDX-License-Identifier: MIT
#include "objectstore/file_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "objectstore/store_error.h"

namespace hearthmark::objectstore {

namespace {

constexpr mode_t kModeBits = 07777;

}  // namespace

FileDescriptor::FileDescriptor(std::filesystem::path path, int flags, mode_t mode)
    : path_(std::move(path)), descriptor_(::open(path_.c_str(), flags | O_CLOEXEC, mode)) {
    if (descriptor_ < 0) {
        fail("open");
    }
}

FileDescriptor::~FileDescriptor() {
    ::close(descriptor_);
}

std::size_t FileDescriptor::read(char* bytes, std::size_t most) const {
    for (;;) {
        const ssize_t count = ::read(descriptor_, bytes, most);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) {
            fail("read");
        }
    }
}

void FileDescriptor::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            fail("write");
        }
    }
}

void FileDescriptor::setMode(mode_t mode) const {
    struct stat status {};
    // Some file systems know one mode for all files, and fail to set even that.
    if (::fstat(descriptor_, &status) != 0 ||
        ((status.st_mode & kModeBits) != mode && ::fchmod(descriptor_, mode) != 0)) {
        fail("fchmod");
    }
}

void FileDescriptor::flush() const {
    if (::fsync(descriptor_) != 0) {
        fail("fsync");
    }
}

void FileDescriptor::fail(const char* call) const {
    throw StoreError::ofCall(call, path_, errno);
}

}  // namespace hearthmark::objectstore
