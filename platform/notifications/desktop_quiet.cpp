// SPDX-License-Identifier: MIT
#include "platform/notifications/desktop_quiet.h"

#include <QDBusConnection>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QProcess>
#include <utility>

#include "platform/desktop/dbus_answer.h"
#include "platform/notifications/notification_call.h"

namespace hearthmark::platform {

namespace {

bool isGnome() {
    return qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("GNOME");
}

// By GNOME's own program: what it would take to read its settings here is not loaded otherwise.
void askGnome(QObject* context, const std::function<void(bool areOff)>& onAnswer) {
    auto* const settings = new QProcess(context);
    QObject::connect(settings, &QProcess::finished, context, [settings, onAnswer](int /*status*/) {
        settings->deleteLater();
        onAnswer(settings->readAllStandardOutput().trimmed() == "false");
    });
    QObject::connect(settings, &QProcess::errorOccurred, context,
                     [settings, onAnswer](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart) {
                             settings->deleteLater();
                             onAnswer(false);
                         }
                     });
    settings->start(QStringLiteral("gsettings"),
                    {QStringLiteral("get"), QStringLiteral("org.gnome.desktop.notifications"),
                     QStringLiteral("show-banners")},
                    QIODevice::ReadOnly);
}

void askForValue(const QDBusMessage& question, QObject* context,
                 std::function<void(const QVariant& value)> onAnswer) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        onAnswer({});
        return;
    }
    using Answer = QDBusPendingReply<QDBusVariant>;
    whenAnswered<Answer>(bus.asyncCall(question, kDaemonPatienceMilliseconds), context,
                         [onAnswer = std::move(onAnswer)](const Answer& reply) {
                             onAnswer(reply.isError() ? QVariant() : reply.value().variant());
                         });
}

}  // namespace

void askWhetherNotificationsAreOff(const QStringList& capabilities, QObject* context,
                                   std::function<void(bool areOff)> onAnswer) {
    if (capabilities.contains(QLatin1String("inhibitions"))) {
        QDBusMessage question = QDBusMessage::createMethodCall(
            kNotifications, kNotificationsPath, QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("Get"));
        question << QLatin1String(kNotifications) << QStringLiteral("Inhibited");
        askForValue(question, context, [onAnswer = std::move(onAnswer)](const QVariant& value) {
            onAnswer(value.toBool());
        });
    } else if (isGnome()) {
        askGnome(context, onAnswer);
    } else {
        onAnswer(false);
    }
}

void askWhetherSoundsAreOn(QObject* context, std::function<void(bool areOn)> onAnswer) {
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    question << QStringLiteral("org.gnome.desktop.sound") << QStringLiteral("event-sounds");
    askForValue(question, context, [onAnswer = std::move(onAnswer)](const QVariant& value) {
        // A variant within another, as older portals answer.
        const QVariant inner =
            value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
        onAnswer(!inner.isValid() || inner.toBool());
    });
}

}  // namespace hearthmark::platform
