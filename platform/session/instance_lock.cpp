// SPDX-License-Identifier: MIT
#include "platform/session/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "objectstore/store_error.h"
#include "objectstore/store_file.h"

namespace hearthmark::platform {

namespace {

// Not the store itself: closing any descriptor of its file would drop SQLite's own locks.
constexpr auto kFileName = "Hearthmark.lock";

}  // namespace

InstanceLock::InstanceLock(const std::filesystem::path& directory) {
    try {
        objectstore::makeStoreDirectory(directory);
    } catch (const objectstore::StoreError& error) {
        error_ = std::error_code(error.code(), std::generic_category());
        return;
    }
    lock(directory / kFileName);
}

void InstanceLock::lock(const std::filesystem::path& file) {
    descriptor_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0) {
        state_ = State::held;
    } else if (descriptor_ >= 0 && errno == EWOULDBLOCK) {
        state_ = State::heldByAnother;
    } else {
        error_ = std::error_code(errno, std::generic_category());
    }
}

std::string InstanceLock::name() const {
    struct stat status {};
    ::fstat(descriptor_, &status);
    return std::to_string(status.st_dev) + '-' + std::to_string(status.st_ino);
}

InstanceLock::~InstanceLock() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

}  // namespace hearthmark::platform
