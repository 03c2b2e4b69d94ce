// SPDX-License-Identifier: MIT
#include "platform/status_item/dbus_menu.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <utility>

#include "platform/desktop/dbus_structure.h"
#include "platform/status_item/status_icon.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 1s;
// Not every panel tells that it has closed the menu.
constexpr auto kLongestOpen = 1min;

enum ItemId {
    rootItem,
    titleItem,
    titleSeparator,
    addTaskItem,
    showSeparator,
    showItem,
    updatesItem,
    quitSeparator,
    quitItem
};

// A panel makes no menu wider than the screen, but some make it as wide as that.
constexpr int kLongestTaskName = 40;

QString textOf(const services::StatusMenuEntry& entry) {
    const QString text = QString::fromStdString(entry.text);
    const QString name =
        shortened(QString::fromStdString(entry.taskName).simplified(), kLongestTaskName);
    return name.isEmpty() ? text : DbusMenu::tr("%1 – %2").arg(text, name);
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
    renew();
}

QString DbusMenu::textDirection() const {
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

void DbusMenu::setTitle(const QString& title) {
    title_ = title;
    line(titleItem)->text = title;
    tellTitle();
}

void DbusMenu::setEntries(std::function<std::vector<services::StatusMenuEntry>()> entries) {
    entries_ = std::move(entries);
    entriesChanged();
}

// Nothing is worked out before somebody asks.
void DbusMenu::entriesChanged() {
    if (std::exchange(areLinesCurrent_, false)) {
        emit LayoutUpdated(++revision_, rootItem);
    }
}

const std::vector<DbusMenu::Line>& DbusMenu::lines() {
    renew();
    return lines_;
}

void DbusMenu::renew() {
    if (std::exchange(areLinesCurrent_, true)) {
        return;
    }
    const auto separator = [](int id) { return Line{.id = id, .text = {}, .choose = {}}; };
    lines_ = {{.id = titleItem, .text = title_, .choose = {}}, separator(titleSeparator)};
    std::map<std::string, int> ids;
    for (services::StatusMenuEntry& entry :
         entries_ ? entries_() : std::vector<services::StatusMenuEntry>()) {
        const auto known = ids_.find(entry.key);
        const int id = known != ids_.end() ? known->second : nextId_++;
        ids.emplace(std::move(entry.key), id);
        lines_.push_back({.id = id,
                          .text = textOf(entry),
                          .isEnabled = true,
                          .choose = std::move(entry.choose)});
    }
    ids_ = std::move(ids);
    const auto add = [this](int id, const QString& text, const std::function<void()>& choose) {
        lines_.push_back({.id = id, .text = text, .isEnabled = true, .choose = choose});
    };
    add(addTaskItem, tr("Add Task…"), actions_.addTask);
    lines_.push_back(separator(showSeparator));
    add(showItem, tr("Show Hearthmark"), actions_.show);
    add(updatesItem, tr("Check for Updates…"), actions_.checkForUpdates);
    lines_.back().isEnabled = canCheckForUpdates_;
    lines_.push_back(separator(quitSeparator));
    add(quitItem, tr("Quit"), actions_.quit);
}

DbusMenu::Line* DbusMenu::line(int id) {
    const auto found = std::ranges::find(lines_, id, &Line::id);
    return found != lines_.end() ? &*found : nullptr;
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
        line(updatesItem)->isEnabled = canCheckForUpdates;
        emit ItemsPropertiesUpdated(
            {{updatesItem, properties(updatesItem, {QStringLiteral("enabled")})}}, {});
    }
}

uint DbusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                         DbusMenuLayout& layout) {
    if (!isKnown(parentId)) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such item"));
        return revision_;
    }
    renew();
    layout = this->layout(parentId, recursionDepth, propertyNames);
    return revision_;
}

QList<DbusMenuItem> DbusMenu::GetGroupProperties(const QList<int>& ids,
                                                 const QStringList& propertyNames) {
    renew();
    QList<DbusMenuItem> items;
    const auto add = [&](int id) {
        if (ids.isEmpty() || ids.contains(id)) {
            items.append({id, properties(id, propertyNames)});
        }
    };
    add(rootItem);
    for (const Line& line : lines_) {
        add(line.id);
    }
    return items;
}

QDBusVariant DbusMenu::GetProperty(int id, const QString& name) {
    renew();
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
    std::ranges::remove_copy_if(ids, std::back_inserter(idErrors),
                                std::bind_front(&DbusMenu::isKnown, this));
    return ids.contains(rootItem) ? QList<int>{rootItem} : QList<int>();
}

bool DbusMenu::isKnown(int id) const {
    return (id >= rootItem && id <= quitItem) || (id >= kFirstEntry && id < nextId_);
}

// Without names, all.
QVariantMap DbusMenu::properties(int id, const QStringList& names) {
    QVariantMap all;
    if (id == rootItem) {
        all.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    } else if (const Line* const line = this->line(id); line == nullptr) {
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
    if (id == rootItem && depth != 0) {
        for (const Line& line : lines_) {
            layout.children.append(QVariant::fromValue(this->layout(line.id, depth - 1, names)));
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
        if (const Line* const chosen = line(id); chosen != nullptr && chosen->isEnabled) {
            QTimer::singleShot(0, this, chosen->choose);
        }
    }
    return isKnown(id);
}

}  // namespace hearthmark::platform
