// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QImage>
#include <QLatin1String>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace hearthmark::platform {

// The desktop's notification daemon on the session bus.
inline constexpr QLatin1String kNotifications("org.freedesktop.Notifications");
inline constexpr QLatin1String kNotificationsPath("/org/freedesktop/Notifications");
// How long a daemon may take to answer before it counts as one that does not.
inline constexpr int kDaemonPatienceMilliseconds = 3000;

// Makes the program's icon, for a program that was not installed, so that daemons do not find it by
// its name. May be empty.
using NotificationIcon = std::function<QImage()>;

struct DesktopNotification {
    QString title;
    QString body;
    QStringList actions;
    QVariantMap hints;
    int expiration;
};

QDBusMessage notificationCall(const char* method);

// Shows it as the program's own. The body is escaped where the capabilities say that it is read as
// markup; the title never is.
QDBusMessage notifyCall(const DesktopNotification& notification, const QStringList& capabilities,
                        const NotificationIcon& icon);

}  // namespace hearthmark::platform
