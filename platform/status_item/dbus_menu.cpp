// SPDX-License-Identifier: MIT
#include "platform/status_item/dbus_menu.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <utility>

#include "platform/desktop/dbus_structure.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

// The lines are always the same ones.
constexpr uint kRevision = 1;
constexpr auto kPause = 1s;
// Not every panel tells that it has closed the menu.
constexpr auto kLongestOpen = 1min;

enum ItemId { rootItem, titleItem, titleSeparator, showItem, updatesItem, quitSeparator, quitItem };
constexpr std::array kItems{titleItem,   titleSeparator, showItem,
                            updatesItem, quitSeparator,  quitItem};

bool isItem(int id) {
    return id >= rootItem && id <= quitItem;
}

// An underscore would stand for the key that chooses the item.
QString labelOf(QString text) {
    return text.replace(QLatin1Char('_'), QLatin1String("__"));
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const DbusMenuItem& item) {
    return writeStructure(argument, item.id, item.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DbusMenuItem& item) {
    return readStructure(argument, item.id, item.properties);
}

QDBusArgument& operator<<(QDBusArgument& argument, const DbusMenuLayout& layout) {
    return writeStructure(argument, layout.id, layout.properties, layout.children);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DbusMenuLayout& layout) {
    return readStructure(argument, layout.id, layout.properties, layout.children);
}

QDBusArgument& operator<<(QDBusArgument& argument, const DbusMenuEvent& event) {
    return writeStructure(argument, event.id, event.eventId, event.data, event.timestamp);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DbusMenuEvent& event) {
    return readStructure(argument, event.id, event.eventId, event.data, event.timestamp);
}

QDBusArgument& operator<<(QDBusArgument& argument, const DbusMenuRemovedProperties& removed) {
    return writeStructure(argument, removed.id, removed.names);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, DbusMenuRemovedProperties& removed) {
    return readStructure(argument, removed.id, removed.names);
}

DbusMenu::DbusMenu(Actions actions) : actions_(std::move(actions)) {
    qDBusRegisterMetaType<DbusMenuItem>();
    qDBusRegisterMetaType<QList<DbusMenuItem>>();
    qDBusRegisterMetaType<DbusMenuLayout>();
    qDBusRegisterMetaType<DbusMenuEvent>();
    qDBusRegisterMetaType<QList<DbusMenuEvent>>();
    qDBusRegisterMetaType<DbusMenuRemovedProperties>();
    qDBusRegisterMetaType<QList<DbusMenuRemovedProperties>>();
    open_.setSingleShot(true);
    open_.setInterval(kLongestOpen);
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, &DbusMenu::tellTitle);
}

QString DbusMenu::textDirection() const {
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

void DbusMenu::setTitle(const QString& title) {
    title_ = title;
    tellTitle();
}

// A panel tells before it opens the menu; until then it is spared each second's title.
void DbusMenu::open() {
    if (!open_.isActive()) {
        toldTitle_.clear();  // what the panel has read since is not known
    }
    open_.start();
    tellTitle();
}

void DbusMenu::tellTitle() {
    if (open_.isActive() && toldTitle_ != title_ && !pause_.isActive()) {
        toldTitle_ = title_;
        pause_.start();
        emit ItemsPropertiesUpdated({{titleItem, properties(titleItem, {QStringLiteral("label")})}},
                                    {});
    }
}

void DbusMenu::setCanCheckForUpdates(bool canCheckForUpdates) {
    if (canCheckForUpdates_ != canCheckForUpdates) {
        canCheckForUpdates_ = canCheckForUpdates;
        emit ItemsPropertiesUpdated(
            {{updatesItem, properties(updatesItem, {QStringLiteral("enabled")})}}, {});
    }
}

uint DbusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                         DbusMenuLayout& layout) {
    if (!isItem(parentId)) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such item"));
        return kRevision;
    }
    layout = this->layout(parentId, recursionDepth, propertyNames);
    return kRevision;
}

QList<DbusMenuItem> DbusMenu::GetGroupProperties(const QList<int>& ids,
                                                 const QStringList& propertyNames) {
    QList<DbusMenuItem> items;
    for (int id = rootItem; id <= quitItem; ++id) {
        if (ids.isEmpty() || ids.contains(id)) {
            items.append({id, properties(id, propertyNames)});
        }
    }
    return items;
}

QDBusVariant DbusMenu::GetProperty(int id, const QString& name) {
    const QVariantMap found = properties(id, {name});
    if (found.isEmpty()) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such property"));
        return {};
    }
    return QDBusVariant(found.first());
}

void DbusMenu::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                     uint /*timestamp*/) {
    if (!handleEvent(id, eventId)) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such item"));
    }
}

QList<int> DbusMenu::EventGroup(const QList<DbusMenuEvent>& events) {
    QList<int> idErrors;
    for (const DbusMenuEvent& event : events) {
        if (!handleEvent(event.id, event.eventId)) {
            idErrors.append(event.id);
        }
    }
    if (!events.isEmpty() && idErrors.size() == events.size()) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There are no such items"));
    }
    return idErrors;
}

bool DbusMenu::AboutToShow(int id) {
    open();
    return id == rootItem;  // to be read anew, for the title
}

QList<int> DbusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    open();
    std::ranges::remove_copy_if(ids, std::back_inserter(idErrors), isItem);
    return ids.contains(rootItem) ? QList<int>{rootItem} : QList<int>();
}

// Without names, all.
QVariantMap DbusMenu::properties(int id, const QStringList& names) const {
    const auto line = [](const QString& text, bool isEnabled) {
        return QVariantMap{{QStringLiteral("label"), labelOf(text)},
                           {QStringLiteral("enabled"), isEnabled}};
    };
    QVariantMap all;
    switch (id) {
        case rootItem:
            all.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
            break;
        case titleItem:
            all = line(title_, false);
            break;
        case showItem:
            all = line(tr("Show Hearthmark"), true);
            break;
        case updatesItem:
            all = line(tr("Check for Updates…"), canCheckForUpdates_);
            break;
        case quitItem:
            all = line(tr("Quit"), true);
            break;
        case titleSeparator:
        case quitSeparator:
            all.insert(QStringLiteral("type"), QStringLiteral("separator"));
            break;
        default:
            break;
    }
    if (names.isEmpty()) {
        return all;
    }
    all.removeIf([&names](const auto& property) { return !names.contains(property.key()); });
    return all;
}

// To all depths where the depth is negative.
DbusMenuLayout DbusMenu::layout(int id, int depth, const QStringList& names) const {
    DbusMenuLayout layout{id, properties(id, names), {}};
    if (id == rootItem && depth != 0) {
        for (const ItemId item : kItems) {
            layout.children.append(QVariant::fromValue(this->layout(item, depth - 1, names)));
        }
    }
    return layout;
}

bool DbusMenu::handleEvent(int id, const QString& eventId) {
    if (id == rootItem && eventId == QLatin1String("opened")) {
        open();
    } else if (id == rootItem && eventId == QLatin1String("closed")) {
        open_.stop();
    } else if (eventId == QLatin1String("clicked")) {
        const std::function<void()>* action = nullptr;
        if (id == showItem) {
            action = &actions_.show;
        } else if (id == updatesItem && canCheckForUpdates_) {
            action = &actions_.checkForUpdates;
        } else if (id == quitItem) {
            action = &actions_.quit;
        }
        if (action != nullptr) {
            QTimer::singleShot(0, this, *action);
        }
    }
    return isItem(id);
}

}  // namespace hearthmark::platform
