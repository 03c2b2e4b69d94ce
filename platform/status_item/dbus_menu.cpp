// SPDX-License-Identifier: MIT
#include "platform/status_item/dbus_menu.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "platform/desktop/dbus_structure.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 1s;
// Not every panel tells that it has closed the menu.
constexpr auto kLongestOpen = 1min;

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

DbusMenu::DbusMenu(StatusMenu::Actions actions) : menu_(std::move(actions)), gate_(kMostCalls) {
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

bool DbusMenu::event(QEvent* event) {
    return !gate_.admits(*event) || QObject::event(event);
}

void DbusMenu::setTitle(const QString& title) {
    title_ = title;
    menu_.setTitle(title);
    tellTitle();
}

void DbusMenu::setEntries(StatusMenu::Entries entries) {
    menu_.setEntries(std::move(entries));
    tellLayout();
}

// Nothing is worked out before somebody asks.
void DbusMenu::entriesChanged() {
    menu_.entriesChanged();
    tellLayout();
}

// Once, until the lines have been read again.
void DbusMenu::tellLayout() {
    if (std::exchange(isLayoutRead_, false)) {
        emit LayoutUpdated(++revision_, StatusMenu::root);
    }
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
        emit ItemsPropertiesUpdated(
            {{StatusMenu::title, properties(StatusMenu::title, {QStringLiteral("label")})}}, {});
    }
}

void DbusMenu::setCanCheckForUpdates(bool canCheckForUpdates) {
    if (menu_.setCanCheckForUpdates(canCheckForUpdates)) {
        emit ItemsPropertiesUpdated(
            {{StatusMenu::updates, properties(StatusMenu::updates, {QStringLiteral("enabled")})}},
            {});
    }
}

uint DbusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                         DbusMenuLayout& layout) {
    if (!menu_.isKnown(parentId)) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such item"));
        return revision_;
    }
    isLayoutRead_ |= parentId == StatusMenu::root && recursionDepth != 0;
    layout = this->layout(parentId, recursionDepth, propertyNames);
    return revision_;
}

QList<DbusMenuItem> DbusMenu::GetGroupProperties(const QList<int>& ids,
                                                 const QStringList& propertyNames) {
    QList<DbusMenuItem> items;
    const auto add = [&](int id) {
        if (ids.isEmpty() || ids.contains(id)) {
            items.append({id, properties(id, propertyNames)});
        }
    };
    add(StatusMenu::root);
    for (const StatusMenu::Line& line : menu_.lines()) {
        add(line.id);
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
    return id == StatusMenu::root;  // to be read anew, for the title
}

QList<int> DbusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    open();
    std::ranges::remove_copy_if(ids, std::back_inserter(idErrors),
                                [this](int id) { return menu_.isKnown(id); });
    return ids.contains(StatusMenu::root) ? QList<int>{StatusMenu::root} : QList<int>();
}

// Without names, all.
QVariantMap DbusMenu::properties(int id, const QStringList& names) const {
    QVariantMap all;
    if (id == StatusMenu::root) {
        all.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    } else if (const StatusMenu::Line* const line = menu_.line(id); line == nullptr) {
        // Gone, or never there.
    } else if (!line->text) {
        all.insert(QStringLiteral("type"), QStringLiteral("separator"));
    } else {
        all.insert(QStringLiteral("label"), labelOf(*line->text));
        all.insert(QStringLiteral("enabled"), line->isEnabled);
    }
    if (names.isEmpty()) {
        return all;
    }
    all.removeIf([&names](const auto& property) { return !names.contains(property.key()); });
    return all;
}

// To all depths where the depth is negative.
DbusMenuLayout DbusMenu::layout(int id, int depth, const QStringList& names) {
    DbusMenuLayout layout{id, properties(id, names), {}};
    if (id == StatusMenu::root && depth != 0) {
        for (const StatusMenu::Line& line : menu_.lines()) {
            layout.children.append(QVariant::fromValue(this->layout(line.id, depth - 1, names)));
        }
    }
    return layout;
}

bool DbusMenu::handleEvent(int id, const QString& eventId) {
    if (id == StatusMenu::root && eventId == QLatin1String("opened")) {
        open();
    } else if (id == StatusMenu::root && eventId == QLatin1String("closed")) {
        open_.stop();
    } else if (eventId == QLatin1String("clicked")) {
        if (const StatusMenu::Line* const chosen = menu_.line(id);
            chosen != nullptr && chosen->isEnabled) {
            QTimer::singleShot(0, this, chosen->choose);
        }
    }
    return menu_.isKnown(id);
}

}  // namespace hearthmark::platform
