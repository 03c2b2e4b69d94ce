// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace hearthmark::app {

// The desktop has started the program: it may act from now on.
struct LaunchNotification {};
// The event loop has ended: the last chance to write.
struct TerminationNotification {};

// Relays what happens to the application to whoever asked to be called. Main thread.
class AppDelegate {
 public:
    // `hideApplication` takes every window off the screen.
    explicit AppDelegate(std::function<void()> hideApplication);

    // Each calls every closure, in the order of the list.
    void applicationDidFinishLaunching(const LaunchNotification& notification);
    void applicationWillTerminate(const TerminationNotification& notification);

    // Hides the application and answers no: the program lives on without its window.
    bool windowShouldClose();

    std::vector<std::function<void(const LaunchNotification&)>> onApplicationDidFinishLaunching;
    std::vector<std::function<void(const TerminationNotification&)>> onApplicationWillTerminate;

 private:
    std::function<void()> hideApplication_;
};

}  // namespace hearthmark::app
