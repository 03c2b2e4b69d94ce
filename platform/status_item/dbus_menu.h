// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QDBusVariant>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>
#include <QVariantMap>
#include <vector>

#include "platform/session/call_gate.h"
#include "platform/status_item/status_menu.h"

namespace hearthmark::platform {

// Of the item, and of its menu: ten times what a panel calls that reads each property each second.
inline constexpr CallLimit::Bounds kMostCalls{.atOnce = 200, .perSecond = 200};

// The values that go over the bus, in the order of their fields.
struct DbusMenuItem {
    int id = 0;
    QVariantMap properties;
};
struct DbusMenuLayout {
    int id = 0;
    QVariantMap properties;
    // Each holds a DbusMenuLayout.
    QVariantList children;
};
struct DbusMenuEvent {
    int id = 0;
    QString eventId;
    QDBusVariant data;
    uint timestamp = 0;
};
struct DbusMenuRemovedProperties {
    int id = 0;
    QStringList names;
};

// The status item's menu as panels read it: com.canonical.dbusmenu. Whoever registers it exports
// its public slots, its properties and its signals. Main thread.
//
// Not a private QDBusContext: the toolkit would not find it, and an error reply would end the
// program.
class DbusMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

 public:
    explicit DbusMenu(StatusMenu::Actions actions);

    bool event(QEvent* event) override;

    void setTitle(const QString& title);
    void setCanCheckForUpdates(bool canCheckForUpdates);
    // What has read the menu is told to read it anew, once until it has.
    void setEntries(StatusMenu::Entries entries);
    void entriesChanged();

    const std::vector<StatusMenu::Line>& lines() { return menu_.lines(); }

    uint version() const { return 3; }
    QString textDirection() const;
    QString status() const { return QStringLiteral("normal"); }
    QStringList iconThemePath() const { return {}; }

 public slots:
    // The names and signatures are those of the interface.
    // NOLINTBEGIN(readability-identifier-naming)
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   hearthmark::platform::DbusMenuLayout& layout);
    QList<hearthmark::platform::DbusMenuItem> GetGroupProperties(const QList<int>& ids,
                                                                 const QStringList& propertyNames);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<hearthmark::platform::DbusMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

 signals:
    void LayoutUpdated(uint revision, int parentId);
    void ItemsPropertiesUpdated(
        const QList<hearthmark::platform::DbusMenuItem>& updated,
        const QList<hearthmark::platform::DbusMenuRemovedProperties>& removed);
    // NOLINTEND(readability-identifier-naming)

 private:
    QVariantMap properties(int id, const QStringList& names) const;
    DbusMenuLayout layout(int id, int depth, const QStringList& names);
    bool handleEvent(int id, const QString& eventId);
    void open();
    void tellTitle();
    void tellLayout();

    StatusMenu menu_;
    CallGate gate_;
    bool isLayoutRead_ = false;
    uint revision_ = 1;
    QString title_;
    QString toldTitle_;
    // Runs while the menu can be seen.
    QTimer open_;
    // Between two messages of the title.
    QTimer pause_;
};

}  // namespace hearthmark::platform
