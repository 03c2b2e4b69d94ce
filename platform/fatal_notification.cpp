// SPDX-License-Identifier: MIT
#include "platform/fatal_notification.h"

#include <QDBusConnection>
#include <QStringList>
#include <QVariantMap>

#include "platform/application_object.h"
#include "platform/notification_call.h"

namespace hearthmark::platform {

namespace {

constexpr int kTimeoutMilliseconds = 1000;
constexpr int kNeverExpires = 0;
constexpr uchar kCritical = 2;

}  // namespace

void notifyOfFatalError(std::string_view message) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    const QString body =
        QString::fromUtf8(message.data(), static_cast<qsizetype>(message.size())).toHtmlEscaped();
    QDBusMessage notify = notificationCall("Notify");
    notify << QStringLiteral("Hearthmark") << 0U << QString()
           << QObject::tr("Hearthmark has stopped") << body << QStringList()
           << QVariantMap{{QStringLiteral("urgency"), QVariant::fromValue(kCritical)},
                          {QStringLiteral("desktop-entry"), QLatin1String(kApplicationId)}}
           << kNeverExpires;
    bus.call(notify, QDBus::Block, kTimeoutMilliseconds);
}

}  // namespace hearthmark::platform
