// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include <utility>

namespace hearthmark::app {

AppDelegate::AppDelegate(std::function<void()> hideApplication)
    : hideApplication_(std::move(hideApplication)) {}

void AppDelegate::applicationDidFinishLaunching(const LaunchNotification& notification) {
    for (const auto& closure : onApplicationDidFinishLaunching) {
        closure(notification);
    }
}

void AppDelegate::applicationWillTerminate(const TerminationNotification& notification) {
    for (const auto& closure : onApplicationWillTerminate) {
        closure(notification);
    }
}

bool AppDelegate::windowShouldClose() {
    hideApplication_();
    return false;
}

services::PresentationOptions AppDelegate::willPresent(
    const services::NotificationRequest& /*request*/) {
    return services::PresentationOptions::banner | services::PresentationOptions::sound;
}

}  // namespace hearthmark::app
