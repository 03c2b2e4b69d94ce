// SPDX-License-Identifier: MIT
#include "platform/application_object.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

namespace hearthmark::platform {

bool ApplicationObject::registerOnSessionBus() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    return bus.registerObject(kApplicationObjectPath, this, QDBusConnection::ExportAllSlots) &&
           bus.interface()->registerService(kApplicationId,
                                            QDBusConnectionInterface::DontQueueService) ==
               QDBusConnectionInterface::ServiceRegistered;
}

void ApplicationObject::Activate(const QVariantMap& platformData) {
    emit activationRequested(platformData.value(QStringLiteral("activation-token")).toString());
}

// There are no documents and no actions; both bring the window to the front.
void ApplicationObject::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
    Activate(platformData);
}

void ApplicationObject::ActivateAction(const QString& /*action*/, const QVariantList& /*parameter*/,
                                       const QVariantMap& platformData) {
    Activate(platformData);
}

}  // namespace hearthmark::platform
