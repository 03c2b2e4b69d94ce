// SPDX-License-Identifier: MIT
#include "platform/desktop/desktop_appearance.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QMap>
#include <QPalette>
#include <QVariantMap>
#include <utility>

#include "platform/desktop/dbus_answer.h"

namespace hearthmark::platform {

namespace {

constexpr QLatin1String kPortal("org.freedesktop.portal.Desktop");
constexpr QLatin1String kPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String kSettings("org.freedesktop.portal.Settings");

using Groups = QMap<QString, QVariantMap>;

bool isPaletteDark() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

}  // namespace

DesktopAppearance::DesktopAppearance(std::shared_ptr<services::AppearancePreference> preference)
    : preference_(std::move(preference)),
      bus_(QDBusConnection::sessionBus()),
      isPaletteDark_(isPaletteDark()) {
    publish();
    if (!bus_.isConnected()) {
        return;
    }
    qDBusRegisterMetaType<Groups>();
    // Else the toolkit does not connect a slot that takes one.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    if (!bus_.connect({}, kPath, kSettings, QStringLiteral("SettingChanged"), this,
                      SLOT(settingChanged(QString, QString, QDBusVariant)))) {
        qWarning("It cannot be heard when the desktop turns light or dark.");
    }
    readAll();
}

void DesktopAppearance::readAll() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kPortal, kPath, kSettings, QStringLiteral("ReadAll"));
    call << PortalSettings::groups();
    using Answer = QDBusPendingReply<Groups>;
    whenAnswered<Answer>(bus_.asyncCall(call), this, [this](const Answer& reply) {
        if (reply.isError()) {
            return;  // the usual answer where there is no portal
        }
        const Groups groups = reply.value();
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            for (auto value = group->begin(); value != group->end(); ++value) {
                settings_.take(group.key(), value.key(), value.value());
            }
        }
        publish();
    });
}

void DesktopAppearance::settingChanged(const QString& group, const QString& key,
                                       const QDBusVariant& value) {
    settings_.take(group, key, value.variant());
    publish();
}

void DesktopAppearance::publish() {
    const services::Appearance appearance = settings_.appearance(isPaletteDark_);
    if (preference_->value() != appearance) {
        preference_->setValue(appearance);
    }
}

}  // namespace hearthmark::platform
