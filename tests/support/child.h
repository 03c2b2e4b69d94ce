// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <array>
#include <cstddef>
#include <functional>

namespace hearthmark::tests {

// A process of its own that operates, without standard error.
class Child {
 public:
    // Does the action there, which is given what it tells each operation that returned, and ends
    // with the status that it returns.
    explicit Child(const std::function<int(const std::function<void()>&)>& act);

    // Waits for its end. Sets how many operations had returned and the status.
    void join();

    pid_t id = 0;
    std::size_t returned = 0;
    int status = 0;

 private:
    std::array<int, 2> told_{};
};

}  // namespace hearthmark::tests
