// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace hearthmark::platform {

// Makes this the one process that has the store open: a second one would close the intervals that
// the first has running. A lock on a file of its own beside the store, freed by the kernel however
// the process ends; the file itself stays.
class InstanceLock {
 public:
    enum class State { held, heldByAnother, failed };

    // Tries once. Makes the directory (mode 0700) and the file (mode 0600) where they are missing.
    explicit InstanceLock(const std::filesystem::path& directory);
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;
    ~InstanceLock();

    State state() const { return state_; }
    // Why it failed.
    std::error_code error() const { return error_; }
    // Names what is locked, however its path is written; the same in every process. Requires that
    // it did not fail.
    std::string name() const;

 private:
    void lock(const std::filesystem::path& file);

    int descriptor_ = -1;
    State state_ = State::failed;
    std::error_code error_;
};

}  // namespace hearthmark::platform
