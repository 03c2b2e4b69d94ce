// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <thread>

namespace hearthmark::platform {

// Calls a function when this thread ends the process by exit() from the middle of its work. The
// toolkit does so when the X server goes away, as it does at the end of every bare session: then
// nothing that stands on the stack is destroyed and no event loop ends. After the function the
// process is gone, with the status EXIT_FAILURE. At most one at a time.
class SuddenExit {
 public:
    // `onExit` must not touch the display. What it uses must be there already, also what is made
    // when it is first used: that would be gone by then.
    explicit SuddenExit(std::function<void()> onExit);
    SuddenExit(const SuddenExit&) = delete;
    SuddenExit& operator=(const SuddenExit&) = delete;
    // The work has ended the ordinary way.
    ~SuddenExit();

 private:
    static void handleExit();

    std::function<void()> onExit_;
    std::thread::id thread_;
};

}  // namespace hearthmark::platform
