// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace hearthmark::objectstore {

// An open file, closed with this object. Failures throw StoreError with the errno.
class FileDescriptor {
 public:
    // The mode counts where the flags have it made.
    FileDescriptor(std::filesystem::path path, int flags, mode_t mode = 0);
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    // As many bytes as there are, up to so many; 0 at the end.
    std::size_t read(char* bytes, std::size_t most) const;
    void write(std::string_view bytes) const;
    void setMode(mode_t mode) const;

    // Returns when it is on the disk.
    void flush() const;

 private:
    [[noreturn]] void fail(const char* call) const;

    std::filesystem::path path_;
    int descriptor_;
};

}  // namespace hearthmark::objectstore
