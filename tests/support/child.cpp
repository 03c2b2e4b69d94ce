// SPDX-License-Identifier: MIT
#include "support/child.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace hearthmark::tests {

Child::Child(const std::function<int(const std::function<void()>&)>& act) {
    if (::pipe(told_.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    id = ::fork();
    if (id == 0) {
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        ::_exit(act([this] {
            if (::write(told_[1], "x", 1) != 1) {
                std::abort();
            }
        }));
    }
    ::close(told_[1]);
}

void Child::join() {
    std::array<char, 1000> bytes{};
    for (ssize_t count = 1; count > 0; returned += static_cast<std::size_t>(count)) {
        count = ::read(told_[0], bytes.data(), bytes.size());
    }
    ::close(told_[0]);
    ::waitpid(id, &status, 0);
}

}  // namespace hearthmark::tests
