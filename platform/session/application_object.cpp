// SPDX-License-Identifier: MIT
#include "platform/session/application_object.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QLatin1String>
#include <algorithm>
#include <array>
#include <utility>

namespace hearthmark::platform {

namespace {

// As the desktop entry writes them.
using NamedAction = std::pair<QLatin1String, ApplicationAction>;
constexpr std::array kActions{
    NamedAction(QLatin1String("add-task"), ApplicationAction::addTask),
    NamedAction(QLatin1String("start-short-focus"), ApplicationAction::startShortFocus),
    NamedAction(QLatin1String("quit"), ApplicationAction::quit)};

// One that waits for its answers does not get there. To describe the object takes 0.1 ms.
constexpr CallLimit::Bounds kCalls{.atOnce = 1000, .perSecond = 1000};

// Desktops of X11 may know it under its older name alone.
QString tokenIn(const QVariantMap& platformData) {
    const QVariant startupId = platformData.value(QStringLiteral("desktop-startup-id"));
    return platformData.value(QStringLiteral("activation-token"), startupId).toString();
}

}  // namespace

ApplicationObject::ApplicationObject() : gate_(kCalls) {}

bool ApplicationObject::event(QEvent* event) {
    return !gate_.admits(*event) || QObject::event(event);
}

bool ApplicationObject::registerOnSessionBus() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    return bus.registerObject(kApplicationObjectPath, this,
                              QDBusConnection::ExportAllSlots | QDBusConnection::ExportAdaptors) &&
           bus.interface()->registerService(kApplicationId,
                                            QDBusConnectionInterface::DontQueueService) ==
               QDBusConnectionInterface::ServiceRegistered;
}

void ApplicationObject::Activate(const QVariantMap& platformData) {
    emit activationRequested(tokenIn(platformData));
}

// There are no documents.
void ApplicationObject::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
    Activate(platformData);
}

// No action takes a parameter.
void ApplicationObject::ActivateAction(const QString& action, const QVariantList& /*parameter*/,
                                       const QVariantMap& platformData) {
    const auto* const known = std::ranges::find(kActions, action, &NamedAction::first);
    if (known == kActions.end()) {
        sendErrorReply(QDBusError::InvalidArgs,
                       QStringLiteral("Hearthmark has no action \"%1\".").arg(action));
        return;
    }
    emit actionRequested(known->second, tokenIn(platformData));
}

}  // namespace hearthmark::platform
