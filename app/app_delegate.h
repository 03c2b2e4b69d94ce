// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "services/ports/user_notification_center.h"

namespace hearthmark::app {

// The desktop has started the program: it may act from now on.
struct LaunchNotification {};
// The event loop has ended: the last chance to write.
struct TerminationNotification {};

// Relays what happens to the application to whoever asked to be called. Main thread.
class AppDelegate final : public services::UserNotificationCenterDelegate {
 public:
    // `hideApplication` takes every window off the screen.
    explicit AppDelegate(std::function<void()> hideApplication);

    // Each calls every closure, in the order of the list.
    void applicationDidFinishLaunching(const LaunchNotification& notification);
    void applicationWillTerminate(const TerminationNotification& notification);

    // Hides the application and answers no: the program lives on without its window.
    bool windowShouldClose();

    // With banner and sound: what ended must be noticed also while the program is being used.
    services::PresentationOptions willPresent(
        const services::NotificationRequest& request) override;

    std::vector<std::function<void(const LaunchNotification&)>> onApplicationDidFinishLaunching;
    std::vector<std::function<void(const TerminationNotification&)>> onApplicationWillTerminate;

 private:
    std::function<void()> hideApplication_;
};

}  // namespace hearthmark::app
