// SPDX-License-Identifier: MIT
#include "platform/desktop/reader_memory.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariant>

namespace hearthmark::platform {

namespace {

// ATSPI_STATE_TRANSIENT
constexpr quint32 kTransient = 1U << 28U;

void append(QDBusArgument& argument, const QDBusConnection& bus, const QString& object) {
    argument.beginStructure();
    argument << bus.baseService() << QDBusObjectPath("/org/a11y/atspi/accessible/" + object);
    argument.endStructure();
}

}  // namespace

// As an entry for their caches. Once they know that it is transient they use no other part of it,
// and ask.
void keepFromReadersMemory(quint32 id) {
    // The toolkit's own, on which it answers them.
    const QDBusConnection bus(QStringLiteral("a11y"));
    if (!bus.isConnected()) {
        return;
    }
    QDBusArgument entry;
    entry.beginStructure();
    append(entry, bus, QString::number(id));
    append(entry, bus, QStringLiteral("root"));  // the application
    append(entry, bus, QStringLiteral("root"));  // the parent
    // No place in the parent, no number of children, interfaces, name, role, description.
    entry << -1 << -1 << QStringList() << QString() << quint32(0) << QString();
    entry << QList<quint32>{kTransient, 0};
    entry.endStructure();
    QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/org/a11y/atspi/cache"),
                                                      QStringLiteral("org.a11y.atspi.Cache"),
                                                      QStringLiteral("AddAccessible"));
    message << QVariant::fromValue(entry);
    bus.send(message);
}

}  // namespace hearthmark::platform
