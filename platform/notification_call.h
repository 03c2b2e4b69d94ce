// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QLatin1String>

namespace hearthmark::platform {

// The desktop's notification daemon on the session bus.
inline constexpr QLatin1String kNotifications("org.freedesktop.Notifications");
inline constexpr QLatin1String kNotificationsPath("/org/freedesktop/Notifications");

inline QDBusMessage notificationCall(const char* method) {
    return QDBusMessage::createMethodCall(kNotifications, kNotificationsPath, kNotifications,
                                          QLatin1String(method));
}

}  // namespace hearthmark::platform
