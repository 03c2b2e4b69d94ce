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
// ATSPI_ROLE_LIST_ITEM, ATSPI_ROLE_NOTIFICATION
constexpr quint32 kListItem = 32;
constexpr quint32 kNotification = 101;

QString pathOf(QAccessibleInterface& item) {
    return QString::number(QAccessible::uniqueId(&item));
}

void append(QDBusArgument& argument, const QDBusConnection& bus, const QString& object) {
    argument.beginStructure();
    argument << bus.baseService() << QDBusObjectPath("/org/a11y/atspi/accessible/" + object);
    argument.endStructure();
}

}  // namespace

// As an entry for their caches. Once they know that it is transient they use no other part of it,
// and ask. But an entry that comes with an answer takes its place, and a notification is transient
// only until they ask for its states; so the other parts are true as well.
void keepFromReadersMemory(QAccessibleInterface& item, const QString& name,
                           const QString& description) {
    // The toolkit's own, on which it answers them.
    const QDBusConnection bus(QStringLiteral("a11y"));
    QAccessibleInterface* const parent = item.parent();
    if (parent == nullptr || !bus.isConnected()) {
        return;
    }
    QDBusArgument entry;
    entry.beginStructure();
    append(entry, bus, pathOf(item));
    append(entry, bus, QStringLiteral("root"));  // the application
    append(entry, bus, pathOf(*parent));
    // No place in the parent, no number of children, no interfaces.
    entry << -1 << -1 << QStringList() << name;
    entry << (item.role() == QAccessible::Notification ? kNotification : kListItem) << description;
    entry << QList<quint32>{kTransient, 0};
    entry.endStructure();
    QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/org/a11y/atspi/cache"),
                                                      QStringLiteral("org.a11y.atspi.Cache"),
                                                      QStringLiteral("AddAccessible"));
    message << QVariant::fromValue(entry);
    bus.send(message);
}

}  // namespace hearthmark::platform
