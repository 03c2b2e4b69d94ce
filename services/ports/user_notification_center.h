// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "livedata/block.h"

namespace hearthmark::services {

// What a program may do with its notifications; the values combine.
enum class AuthorizationOptions : std::uint8_t { sound = 2, alert = 4 };

constexpr AuthorizationOptions operator|(AuthorizationOptions a, AuthorizationOptions b) {
    return static_cast<AuthorizationOptions>(static_cast<std::uint8_t>(a) |
                                             static_cast<std::uint8_t>(b));
}

// How a notification is presented while the program is in front; the values combine.
enum class PresentationOptions : std::uint8_t { none = 0, sound = 2, banner = 16 };

constexpr PresentationOptions operator|(PresentationOptions a, PresentationOptions b) {
    return static_cast<PresentationOptions>(static_cast<std::uint8_t>(a) |
                                            static_cast<std::uint8_t>(b));
}

constexpr bool includes(PresentationOptions options, PresentationOptions option) {
    return (static_cast<std::uint8_t>(options) & static_cast<std::uint8_t>(option)) != 0;
}

enum class NotificationSound { none, standard };

// Shown only where the desktop's notifications can have them. Pressing one closes the notification
// and shows no window.
struct NotificationButton {
    // Another one than those of the notification's other buttons.
    std::string key;
    std::string text;
    livedata::Action onTap;

    bool operator==(const NotificationButton&) const = default;
};

struct NotificationContent {
    // Both as they are: what looks like markup is text.
    std::string title;
    std::string body;
    NotificationSound sound = NotificationSound::none;
    // The task that activating the notification shows.
    std::optional<base::Uuid> taskId;
    std::vector<NotificationButton> buttons = {};

    bool operator==(const NotificationContent&) const = default;
};

struct NotificationRequest {
    std::string identifier;
    NotificationContent content;
    // How long after it was added it is shown.
    base::Seconds delay{0};
};

// What a notification center asks the program.
class UserNotificationCenterDelegate {
 public:
    virtual ~UserNotificationCenterDelegate() = default;

    // Asked before a notification is shown while the program is in front.
    virtual PresentationOptions willPresent(const NotificationRequest& request) = 0;
};

// The desktop's notifications. Main thread; no call waits for the desktop.
class UserNotificationCenter {
 public:
    virtual ~UserNotificationCenter() = default;

    // Borrowed; asked from the event loop only.
    virtual void setDelegate(UserNotificationCenterDelegate& delegate) = 0;

    // The completion is told whether notifications may be added.
    virtual void requestAuthorization(AuthorizationOptions options,
                                      std::function<void(bool isGranted)> completion) = 0;

    // Nobody is told whether it could be shown.
    virtual void add(const NotificationRequest& request) = 0;
};

// Hands out the notification center that is current.
using CurrentNotificationCenter = std::function<std::shared_ptr<UserNotificationCenter>()>;

}  // namespace hearthmark::services
