// SPDX-License-Identifier: MIT
#include "platform/session/autostart_entry.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "platform/desktop/dbus_answer.h"
#include "platform/session/application_object.h"

namespace hearthmark::platform {

namespace {

// What a desktop's own settings write to turn an entry off.
constexpr std::array kOffLines{QByteArrayView("Hidden=true"),
                               QByteArrayView("X-GNOME-Autostart-enabled=false"),
                               QByteArrayView("X-MATE-Autostart-enabled=false")};

// The bus is asked to start the program, and for nothing more, so that no window comes.
QByteArray entry() {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Hearthmark\n"
           "Icon=org.hearthmark.Hearthmark\n"
           "TryExec=hearthmark\n"
           "Exec=dbus-send --session --type=method_call --dest=org.freedesktop.DBus "
           "/org/freedesktop/DBus org.freedesktop.DBus.StartServiceByName "
           "string:org.hearthmark.Hearthmark uint32:0\n";
}

std::string notInstalled() {
    return AutostartEntry::tr("Only an installed Hearthmark can be started at login.")
        .toStdString();
}

bool turnsOn(QFile& file) {
    constexpr qint64 kLongest = 1'000'000;
    QByteArray group;
    for (QByteArray line : file.read(kLongest).split('\n')) {
        line = line.trimmed();
        if (line.startsWith('[')) {
            group = line;
        } else if (group == "[Desktop Entry]" &&
                   std::ranges::find(kOffLines, line.replace(" ", "")) != kOffLines.end()) {
            return false;
        }
    }
    return true;
}

}  // namespace

AutostartEntry::AutostartEntry()
    : bus_(QDBusConnection::sessionBus()),
      directory_(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                 QStringLiteral("/autostart")),
      file_(QStringLiteral("%1/%2.desktop").arg(directory_, QLatin1String(kApplicationId))) {}

void AutostartEntry::refresh() {
    services::StartAtLoginState state = state_.value();
    QFile file(file_);
    state.isOn = file.open(QIODevice::ReadOnly) && turnsOn(file);
    state.fault.clear();
    if (!bus_.isConnected()) {
        state.unavailableReason = notInstalled();
    }
    publish(std::move(state));
    lookForService();
}

void AutostartEntry::lookForService() {
    const QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ListActivatableNames"));
    using Answer = QDBusPendingReply<QStringList>;
    whenAnswered<Answer>(bus_.asyncCall(call), this, [this](const Answer& reply) {
        services::StartAtLoginState state = state_.value();
        const bool isInstalled =
            !reply.isError() && reply.value().contains(QLatin1String(kApplicationId));
        state.unavailableReason = isInstalled ? std::string() : notInstalled();
        publish(std::move(state));
    });
}

void AutostartEntry::toggle() {
    if (!state_.value().unavailableReason.empty()) {
        return;
    }
    if (state_.value().isOn) {
        remove();
    } else {
        write();
    }
}

void AutostartEntry::write() {
    QSaveFile file(file_);
    const QByteArray content = entry();
    if (!QDir().mkpath(directory_)) {
        fail(tr("There is no folder %1, and it cannot be made.").arg(directory_));
    } else if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() ||
               !file.commit()) {
        fail(tr("%1 cannot be written: %2").arg(file_, file.errorString()));
    } else {
        publish({.isOn = true});
    }
}

void AutostartEntry::remove() {
    QFile file(file_);
    if (file.exists() && !file.remove()) {
        fail(tr("%1 cannot be removed: %2").arg(file_, file.errorString()));
    } else {
        publish({.isOn = false});
    }
}

void AutostartEntry::publish(services::StartAtLoginState state) {
    if (state != state_.value()) {
        state_.setValue(std::move(state));
    }
}

void AutostartEntry::fail(const QString& message) {
    services::StartAtLoginState state = state_.value();
    state.fault = message.toStdString();
    publish(std::move(state));
}

}  // namespace hearthmark::platform
