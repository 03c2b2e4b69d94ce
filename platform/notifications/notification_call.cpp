// SPDX-License-Identifier: MIT
#include "platform/notifications/notification_call.h"

#include <QDBusArgument>
#include <QStandardPaths>

#include "platform/session/application_object.h"

namespace hearthmark::platform {

namespace {

// In the sizes of which one is there where there are others.
constexpr auto kInstalledIcon = "icons/hicolor/48x48/apps/%1.png";

// As the daemons read it: width, height, bytes of a line, alpha, bits of a colour, colours, pixels.
QVariant imageData(const QImage& icon) {
    const QImage image = icon.convertToFormat(QImage::Format_RGBA8888);
    constexpr bool kHasAlpha = true;
    constexpr int kBits = 8;
    constexpr int kColours = 4;
    QDBusArgument data;
    data.beginStructure();
    data << image.width() << image.height() << static_cast<int>(image.bytesPerLine()) << kHasAlpha
         << kBits << kColours
         << QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    data.endStructure();
    return QVariant::fromValue(data);
}

}  // namespace

QDBusMessage notificationCall(const char* method) {
    return QDBusMessage::createMethodCall(kNotifications, kNotificationsPath, kNotifications,
                                          QLatin1String(method));
}

QDBusMessage notifyCall(const DesktopNotification& notification, const QStringList& capabilities,
                        const NotificationIcon& icon) {
    const QLatin1String id(kApplicationId);
    QVariantMap hints = notification.hints;
    hints.insert(QStringLiteral("desktop-entry"), id);
    if (icon && QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                       QLatin1String(kInstalledIcon).arg(id))
                    .isEmpty()) {
        hints.insert(QStringLiteral("image-data"), imageData(icon()));
    }
    const bool isMarkup = capabilities.contains(QLatin1String("body-markup"));
    QDBusMessage call = notificationCall("Notify");
    call << QStringLiteral("Hearthmark") << 0U << QString(id) << notification.title
         << (isMarkup ? notification.body.toHtmlEscaped() : notification.body)
         << notification.actions << hints << notification.expiration;
    return call;
}

}  // namespace hearthmark::platform
