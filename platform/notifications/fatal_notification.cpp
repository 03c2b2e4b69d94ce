// SPDX-License-Identifier: MIT
#include "platform/notifications/fatal_notification.h"

#include <QDBusConnection>
#include <QDBusReply>
#include <QDeadlineTimer>

#include "platform/notifications/notification_call.h"

namespace hearthmark::platform {

namespace {

constexpr int kPatienceMilliseconds = 1000;
constexpr int kNeverExpires = 0;
constexpr uchar kCritical = 2;

}  // namespace

bool notifyBeforeTheEnd(const QString& title, std::string_view message) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    const QDeadlineTimer deadline(kPatienceMilliseconds);
    const QDBusReply<QStringList> capabilities =
        bus.call(notificationCall("GetCapabilities"), QDBus::Block, kPatienceMilliseconds / 2);
    if (capabilities.error().type() == QDBusError::ServiceUnknown) {
        return false;
    }
    // A daemon that is too slow to say is taken for one that reads markup, as most do: it might
    // drop what it cannot read.
    const QDBusMessage notify = notifyCall(
        {.title = title,
         .body = QString::fromUtf8(message.data(), static_cast<qsizetype>(message.size())),
         .actions = {},
         .hints = {{QStringLiteral("urgency"), QVariant::fromValue(kCritical)}},
         .expiration = kNeverExpires},
        capabilities.isValid() ? capabilities.value() : QStringList{QStringLiteral("body-markup")},
        {});
    const QDBusMessage answer =
        bus.call(notify, QDBus::Block, static_cast<int>(deadline.remainingTime()));
    return answer.type() == QDBusMessage::ReplyMessage;
}

}  // namespace hearthmark::platform
