// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace hearthmark::platform {

// Calls a function when the process is ended from the middle of its work, as the toolkit does when
// the display goes away, which is how every bare session ends: then nothing that stands on the
// stack is destroyed and no event loop ends. Of an X server it says so by exit() on the main
// thread, of a Wayland compositor by _exit() on whatever thread has noticed first. After the
// function the process is gone, with the status EXIT_FAILURE. At most one at a time; made and
// destroyed on the main thread.
class SuddenExit {
 public:
    // `onExit` is called on the main thread and must not touch the display. What it uses must be
    // there already, also what is made when it is first used: that would be gone by then. Where
    // another thread ends the process, it is called from the event loop, which has ten seconds to
    // come to it and to return from it. Requires a QCoreApplication that outlives this.
    explicit SuddenExit(std::function<void()> onExit);
    SuddenExit(const SuddenExit&) = delete;
    SuddenExit& operator=(const SuddenExit&) = delete;
    // The work has ended the ordinary way.
    ~SuddenExit();

    // Of what takes the place of the system's _exit(); returns where nothing is to be called.
    static void handleImmediateExit();

 private:
    std::function<void()> onExit_;
};

}  // namespace hearthmark::platform
