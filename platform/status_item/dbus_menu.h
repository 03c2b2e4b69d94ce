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
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "services/ports/status_bar.h"

namespace hearthmark::platform {

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
    // Called from the event loop, when the panel has its answer.
    struct Actions {
        std::function<void()> addTask;
        std::function<void()> show;
        std::function<void()> checkForUpdates;
        std::function<void()> quit;
    };

    struct Line {
        int id = 0;
        // A line without one separates those around it.
        std::optional<QString> text;
        bool isEnabled = false;
        std::function<void()> choose;
    };

    explicit DbusMenu(Actions actions);

    // What stands below the title.
    void setEntries(std::function<std::vector<services::StatusMenuEntry>()> entries);
    // What has read the menu is told that it is to be read anew, once until it has been.
    void entriesChanged();
    // All lines as they are now.
    const std::vector<Line>& lines();

    // The first line, which does nothing when it is chosen.
    void setTitle(const QString& title);
    void setCanCheckForUpdates(bool canCheckForUpdates);

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
    // Above the numbers of the lines that are always there.
    static constexpr int kFirstEntry = 100;

    void renew();
    // Null for the root, and for what is not there or no longer.
    Line* line(int id);
    // Whether a panel can know it, though it may be gone by now.
    bool isKnown(int id) const;
    QVariantMap properties(int id, const QStringList& names);
    DbusMenuLayout layout(int id, int depth, const QStringList& names);
    bool handleEvent(int id, const QString& eventId);
    void open();
    void tellTitle();

    Actions actions_;
    std::function<std::vector<services::StatusMenuEntry>()> entries_;
    std::vector<Line> lines_;
    bool areLinesCurrent_ = false;
    uint revision_ = 1;
    // Of the entries that are there, by their keys. No number is used again for another.
    std::map<std::string, int> ids_;
    int nextId_ = kFirstEntry;
    QString title_;
    QString toldTitle_;
    bool canCheckForUpdates_ = false;
    // Runs while the menu can be seen.
    QTimer open_;
    // Between two messages of the title.
    QTimer pause_;
};

}  // namespace hearthmark::platform
