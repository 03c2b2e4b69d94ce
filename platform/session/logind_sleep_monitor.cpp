// SPDX-License-Identifier: MIT
#include "platform/session/logind_sleep_monitor.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <utility>

#include "platform/desktop/dbus_answer.h"

namespace hearthmark::platform {

namespace {

constexpr QLatin1String kLogind("org.freedesktop.login1");
constexpr QLatin1String kPath("/org/freedesktop/login1");
constexpr QLatin1String kManager("org.freedesktop.login1.Manager");

}  // namespace

LogindSleepMonitor::LogindSleepMonitor(std::function<void()> willShutDown)
    : willShutDown_(std::move(willShutDown)),
      bus_(QDBusConnection::systemBus()),
      watcher_(kLogind, bus_, QDBusServiceWatcher::WatchForOwnerChange) {}

void LogindSleepMonitor::start(Handlers handlers) {
    handlers_ = std::move(handlers);
    if (!bus_.isConnected()) {
        return;
    }
    if (!bus_.connect(kLogind, kPath, kManager, QStringLiteral("PrepareForSleep"), this,
                      SLOT(prepareForSleep(bool)))) {
        qWarning("It cannot be heard when the machine goes to sleep.");
        return;
    }
    if (!bus_.connect(kLogind, kPath, kManager, QStringLiteral("PrepareForShutdown"), this,
                      SLOT(prepareForShutdown(bool)))) {
        qWarning("It cannot be heard when the machine shuts down.");
    }
    // Without who would tell of the waking the program must not wait for it.
    bus_.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(disconnected()));
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*service*/, const QString& /*old*/, const QString& /*owner*/) {
                prepareForSleep(false);
            });
    takeDelayLock();
}

void LogindSleepMonitor::prepareForSleep(bool isStarting) {
    isAsleep_ = isStarting;
    if (isStarting) {
        handlers_.willSleep();
        delayLock_ = {};
    } else {
        handlers_.didWake();
        takeDelayLock();
    }
}

// Not taken back where the shutdown is: what it paused goes on at the next start.
void LogindSleepMonitor::prepareForShutdown(bool isStarting) {
    if (isStarting) {
        willShutDown_();
    }
}

void LogindSleepMonitor::disconnected() {
    isAsleep_ = false;
    handlers_.didWake();
}

void LogindSleepMonitor::takeDelayLock() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kLogind, kPath, kManager, QStringLiteral("Inhibit"));
    call << QStringLiteral("shutdown:sleep") << QStringLiteral("Hearthmark")
         << tr("The time of running focus intervals is stored.") << QStringLiteral("delay");
    call.setAutoStartService(false);
    using Answer = QDBusPendingReply<QDBusUnixFileDescriptor>;
    whenAnswered<Answer>(bus_.asyncCall(call), this, [this](const Answer& reply) {
        if (!reply.isError()) {
            if (!isAsleep_) {
                delayLock_ = reply.value();
            }
        } else if (!isOfNobody(reply.error())) {
            qWarning("The machine will not wait before it sleeps or shuts down: %s",
                     qUtf8Printable(reply.error().message()));
        }
    });
}

}  // namespace hearthmark::platform
