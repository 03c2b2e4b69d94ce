// SPDX-License-Identifier: MIT
#include "platform/running_instance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QThread>
#include <QVariantMap>
#include <chrono>

#include "platform/application_object.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 800ms;
constexpr auto kPause = 50ms;

// What the desktop gave this process to let a window of it take the focus.
QVariantMap platformData() {
    QVariantMap data;
    const auto add = [&data](const char* key, const char* variable) {
        if (const QByteArray value = qgetenv(variable); !value.isEmpty()) {
            data.insert(QLatin1String(key), QString::fromUtf8(value));
        }
    };
    add("activation-token", "XDG_ACTIVATION_TOKEN");
    add("desktop-startup-id", "DESKTOP_STARTUP_ID");
    return data;
}

}  // namespace

bool activateRunningInstance() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    QDBusMessage activate = QDBusMessage::createMethodCall(
        QLatin1String(kApplicationId), QLatin1String(kApplicationObjectPath),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    activate << platformData();
    // Where the other one is not on this bus, the bus would start yet another.
    activate.setAutoStartService(false);
    const QDeadlineTimer deadline(kPatience);
    while (!deadline.hasExpired()) {
        const QDBusMessage reply =
            bus.call(activate, QDBus::Block, static_cast<int>(deadline.remainingTime()));
        if (reply.type() == QDBusMessage::ReplyMessage) {
            return true;
        }
        QThread::msleep(std::chrono::milliseconds(kPause).count());
    }
    return false;
}

}  // namespace hearthmark::platform
