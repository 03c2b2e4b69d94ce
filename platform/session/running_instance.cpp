// SPDX-License-Identifier: MIT
#include "platform/session/running_instance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QThread>
#include <QVariantMap>
#include <chrono>

#include "platform/session/activation_socket.h"
#include "platform/session/activation_token.h"
#include "platform/session/application_object.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 800ms;
constexpr auto kPause = 50ms;

// One that is not on this bus, or was started by a program that had no socket yet.
bool activateOverBus(const QString& activationToken, std::chrono::milliseconds patience) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    QDBusMessage activate = QDBusMessage::createMethodCall(
        QLatin1String(kApplicationId), QLatin1String(kApplicationObjectPath),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    activate << QVariantMap{{QStringLiteral("activation-token"), activationToken}};
    // Where the other one is not on this bus, the bus would start yet another.
    activate.setAutoStartService(false);
    return bus.call(activate, QDBus::Block, static_cast<int>(patience.count())).type() ==
           QDBusMessage::ReplyMessage;
}

}  // namespace

bool activateRunningInstance(const std::string& instance) {
    const std::string activationToken = takeActivationToken();
    const QDeadlineTimer deadline(kPatience);
    const auto rest = [&deadline] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline.remainingTimeAsDuration());
    };
    while (!deadline.hasExpired()) {
        const ActivationAnswer answer = activateOverSocket(instance, activationToken, rest());
        if (answer != ActivationAnswer::noneListens) {
            return answer == ActivationAnswer::done;
        }
        if (activateOverBus(QString::fromStdString(activationToken), rest())) {
            return true;
        }
        QThread::msleep(std::chrono::milliseconds(kPause).count());
    }
    return false;
}

}  // namespace hearthmark::platform
