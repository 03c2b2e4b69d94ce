// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace hearthmark::platform {

// For its lifetime no signal is blocked: what is started inherits it, and must not be deaf to the
// signals that this program waits for by a descriptor.
class UnblockedSignals {
 public:
    UnblockedSignals() {
        sigset_t none;
        sigemptyset(&none);
        pthread_sigmask(SIG_SETMASK, &none, &blocked_);
    }
    UnblockedSignals(const UnblockedSignals&) = delete;
    UnblockedSignals& operator=(const UnblockedSignals&) = delete;
    ~UnblockedSignals() { pthread_sigmask(SIG_SETMASK, &blocked_, nullptr); }

 private:
    sigset_t blocked_{};
};

}  // namespace hearthmark::platform
