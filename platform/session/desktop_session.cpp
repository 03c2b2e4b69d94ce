// SPDX-License-Identifier: MIT
#include "platform/session/desktop_session.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <utility>

#include "platform/desktop/dbus_answer.h"
#include "platform/session/application_object.h"

namespace hearthmark::platform {

namespace {

constexpr QLatin1String kManager("org.gnome.SessionManager");
constexpr QLatin1String kPath("/org/gnome/SessionManager");
constexpr QLatin1String kClient("org.gnome.SessionManager.ClientPrivate");

bool doesToolkitListen() {
    return QGuiApplication::platformName() == QLatin1String("xcb") &&
           !qEnvironmentVariableIsEmpty("SESSION_MANAGER");
}

}  // namespace

DesktopSession::DesktopSession(std::function<void()> willEnd) : willEnd_(std::move(willEnd)) {
    if (QDBusConnection::sessionBus().isConnected() && !doesToolkitListen()) {
        join();
    }
}

void DesktopSession::join() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kManager, kPath, kManager, QStringLiteral("RegisterClient"));
    constexpr auto kStartupId = "DESKTOP_AUTOSTART_ID";
    call << QLatin1String(kApplicationId) << qEnvironmentVariable(kStartupId);
    qunsetenv(kStartupId);  // it is not for what the program starts
    call.setAutoStartService(false);
    using Answer = QDBusPendingReply<QDBusObjectPath>;
    whenAnswered<Answer>(QDBusConnection::sessionBus().asyncCall(call), this,
                         [this](const Answer& reply) {
                             if (!reply.isError()) {
                                 listen(reply.value());
                             } else if (!isOfNobody(reply.error())) {
                                 qWarning("It cannot be heard when the session ends: %s",
                                          qUtf8Printable(reply.error().message()));
                             }
                         });
}

void DesktopSession::listen(const QDBusObjectPath& client) {
    client_ = client.path();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.connect(kManager, client_, kClient, QStringLiteral("QueryEndSession"), this,
                     SLOT(queryEndSession(uint))) ||
        !bus.connect(kManager, client_, kClient, QStringLiteral("EndSession"), this,
                     SLOT(endSession(uint))) ||
        !bus.connect(kManager, client_, kClient, QStringLiteral("Stop"), this, SLOT(stop()))) {
        qWarning("It cannot be heard when the session ends.");
    }
}

// Nothing speaks against it: all is kept.
void DesktopSession::queryEndSession(uint /*flags*/) {
    QDBusMessage call = QDBusMessage::createMethodCall(kManager, client_, kClient,
                                                       QStringLiteral("EndSessionResponse"));
    call << true << QString();
    QDBusConnection::sessionBus().send(call);
}

// The end of the process is the answer.
void DesktopSession::endSession(uint /*flags*/) {
    willEnd_();
}

void DesktopSession::stop() {
    willEnd_();
}

}  // namespace hearthmark::platform
