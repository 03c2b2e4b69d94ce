// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace hearthmark::ctl {

// What a system call opened, closed with this object. Throws std::system_error where that failed.
class Descriptor {
 public:
    Descriptor(int descriptor, const char* call) : descriptor_(descriptor) {
        if (descriptor_ < 0) {
            throw std::system_error(errno, std::generic_category(), call);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { ::close(descriptor_); }

    int get() const { return descriptor_; }

 private:
    int descriptor_;
};

}  // namespace hearthmark::ctl
