// SPDX-License-Identifier: MIT
#include "ui/window/accessibility.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVariant>
// No version offers a public way to add to what an item tells.
#include <private/qaccessiblequickitem_p.h>
#include <private/qquickaccessibleattached_p.h>
#include <private/qquickitem_p.h>

// From 6.5 on the toolkit does so itself.
#define HEARTHMARK_REPORTS_DISABLED_ITEMS (QT_VERSION < QT_VERSION_CHECK(6, 5, 0))
// From 6.8 on it has an event for what is to be said.
#define HEARTHMARK_HAS_ANNOUNCEMENTS (QT_VERSION >= QT_VERSION_CHECK(6, 8, 0))
// From 6.8 on a list lets readers know only of the rows in sight, and now and then not of one that
// has come back. What is out of sight its states say.
#define HEARTHMARK_LISTS_HIDE_ROWS (QT_VERSION >= QT_VERSION_CHECK(6, 8, 0))

namespace hearthmark::ui {

namespace {

constexpr auto kTicks = "ticks";
KeepFromMemory keepFromMemory = nullptr;

// Whether a text of the item changes each second by the count, as the item says itself.
bool ticks(const QObject* item) {
    return item != nullptr && item->property(kTicks).toBool();
}

const QQuickItem* overlayAround(const QQuickItem* item) {
    while (item != nullptr && !item->inherits("QQuickOverlay")) {
        item = item->parentItem();
    }
    return item;
}

// Whether a sheet or a menu has the keyboard, which would not be closed by it any more if what lies
// behind took it away.
bool isBehindPopup(const QQuickItem& item) {
    return item.window() != nullptr && overlayAround(item.window()->activeFocusItem()) != nullptr &&
           overlayAround(&item) == nullptr;
}

void tellOfRow([[maybe_unused]] QQuickItem& item) {
#if HEARTHMARK_LISTS_HIDE_ROWS
    const QQuickItem* const content = item.parentItem();
    const QQuickItem* const view = content != nullptr ? content->parentItem() : nullptr;
    if (view != nullptr && view->inherits("QQuickListView") &&
        QQuickAccessibleAttached::attachedProperties(&item) != nullptr) {
        QQuickItemPrivate::get(&item)->isAccessible = true;
    }
#endif
}

// Also tells what can be checked, and lets assistive programs write into the editors, open the
// rows' menus and ask how far a progress bar is.
class Item final : public QAccessibleQuickItem, public QAccessibleEditableTextInterface {
 public:
    explicit Item(QQuickItem* item) : QAccessibleQuickItem(item) {
#if HEARTHMARK_REPORTS_DISABLED_ITEMS
        QObject::connect(item, &QQuickItem::enabledChanged, item, [item] {
            QAccessible::State changed;
            changed.disabled = 1;
            QAccessibleStateChangeEvent event(item, changed);
            QAccessible::updateAccessibility(&event);
        });
#endif
    }

#if HEARTHMARK_LISTS_HIDE_ROWS
    int childCount() const override {
        tellOfRows();
        return QAccessibleQuickItem::childCount();
    }

    QAccessibleInterface* child(int index) const override {
        tellOfRows();
        return QAccessibleQuickItem::child(index);
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        tellOfRows();
        return QAccessibleQuickItem::childAt(x, y);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        tellOfRows();
        return QAccessibleQuickItem::indexOfChild(child);
    }
#endif

    // The platform tells of no menu item that it can be checked. Of the items of lists alone it
    // says that nobody may remember their texts, so what ticks is one of them.
    QAccessible::Role role() const override {
        const QAccessible::Role role = QAccessibleQuickItem::role();
        if (role == QAccessible::StaticText && ticks(item())) {
            return QAccessible::ListItem;
        }
        return role == QAccessible::MenuItem && checked().isValid() ? QAccessible::CheckBox : role;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleQuickItem::state();
#if HEARTHMARK_REPORTS_DISABLED_ITEMS
        state.disabled = item()->isEnabled() ? 0 : 1;
#endif
        // A text is never used, so it is not disabled either, nor is it given the keyboard.
        if (isText()) {
            state.disabled = 0;
            state.focusable = item()->activeFocusOnTab() ? state.focusable : 0;
        }
        if (const QVariant isChecked = checked(); isChecked.isValid()) {
            state.checkable = 1;
            state.checked = isChecked.toBool() ? 1 : 0;
        }
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        if (keepFromMemory != nullptr && role() == QAccessible::ListItem &&
            item()->property(kTicks).isValid()) {
            // After the answer, which is being made.
            QMetaObject::invokeMethod(
                item(),
                [item = item(), name = QAccessibleQuickItem::text(QAccessible::Name),
                 description = QAccessibleQuickItem::text(QAccessible::Description)] {
                    if (auto* const told = QAccessible::queryAccessibleInterface(item)) {
                        keepFromMemory(*told, name, description);
                    }
                },
                Qt::QueuedConnection);
        }
        return QAccessibleQuickItem::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::EditableTextInterface && role() == QAccessible::EditableText) {
            return static_cast<QAccessibleEditableTextInterface*>(this);
        }
        if (type == QAccessible::ValueInterface && role() == QAccessible::ProgressBar) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleQuickItem::interface_cast(type);
    }

    QStringList actionNames() const override {
        if (isText() && !item()->isEnabled()) {
            return {};
        }
        QStringList names = QAccessibleQuickItem::actionNames();
        if (hasMenu()) {
            names.append(showMenuAction());
        }
        return names;
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction() && hasMenu()) {
            item()->metaObject()->method(menuMethod()).invoke(item());
        } else if (name != setFocusAction() || !isBehindPopup(*item())) {
            QAccessibleQuickItem::doAction(name);
        }
    }

    void insertText(int offset, const QString& text) override {
        QMetaObject::invokeMethod(item(), "insert", Q_ARG(int, offset), Q_ARG(QString, text));
    }

    void deleteText(int start, int end) override {
        const int last = end < 0 ? characterCount() : end;  // as assistive programs mean it
        QMetaObject::invokeMethod(item(), "remove", Q_ARG(int, start), Q_ARG(int, last));
    }

    void replaceText(int start, int end, const QString& text) override {
        deleteText(start, end);
        insertText(start, text);
    }

 private:
#if HEARTHMARK_LISTS_HIDE_ROWS
    void tellOfRows() const {
        if (item()->inherits("QQuickListView")) {
            for (QQuickItem* row :
                 item()->property("contentItem").value<QQuickItem*>()->childItems()) {
                tellOfRow(*row);
            }
        }
    }
#endif
    bool isText() const {
        const QAccessible::Role role = QAccessibleQuickItem::role();
        return role == QAccessible::StaticText || role == QAccessible::Heading;
    }
    // Of a menu item that can be checked; invalid for other items. What the item says itself the
    // template overwrites.
    QVariant checked() const {
        return item()->property("isChecked");
    }
    // Of DeletableRow.qml; negative for other items.
    int menuMethod() const {
        return item()->metaObject()->indexOfMethod("requestMenu()");
    }
    bool hasMenu() const {
        return item()->isEnabled() && menuMethod() >= 0;
    }
};

// Asked with the most derived class first, and so before the toolkit's own.
QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* item = qobject_cast<QQuickItem*>(object);
    if (item == nullptr) {
        return nullptr;
    }
    tellOfRow(*item);
    return QQuickItemPrivate::get(item)->isAccessible ? new Item(item) : nullptr;
}

bool isTick(const QAccessibleEvent& event) {
    const auto* item = qobject_cast<QQuickItem*>(event.object());
    switch (event.type()) {
        case QAccessible::NameChanged:
        case QAccessible::DescriptionChanged:
            return ticks(item);
        case QAccessible::ValueChanged:
            // A progress bar, inside of what ticks.
            return item != nullptr && ticks(item->parentItem());
        default:
            return false;
    }
}

// The toolkit tells of the texts inside of a row, too, which a row says as one.
bool isOfHidden(const QAccessibleEvent& event) {
    auto* item = qobject_cast<QQuickItem*>(event.object());
    return event.type() == QAccessible::NameChanged && item != nullptr &&
           !QQuickItemPrivate::get(item)->isAccessible;
}

void passOnWhatIsToBeTold(QAccessibleEvent* event);

// A handler stands in for the platform: to pass an event on, it must step aside.
void passOn(QAccessibleEvent* event) {
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(&passOnWhatIsToBeTold);
}

// Whether it told of a notification that appears by announcing its text. Readers that know
// announcements say what appears, too, and would say it twice; so they are not told that it does,
// and must not remember that it is hidden.
bool announces([[maybe_unused]] QAccessibleEvent& event) {
#if HEARTHMARK_HAS_ANNOUNCEMENTS
    QAccessibleInterface* const shown =
        event.type() == QAccessible::ObjectShow ? event.accessibleInterface() : nullptr;
    if (shown != nullptr && shown->role() == QAccessible::Notification) {
        const QString name = shown->text(QAccessible::Name);
        if (keepFromMemory != nullptr) {
            keepFromMemory(*shown, name, shown->text(QAccessible::Description));
        }
        QAccessibleAnnouncementEvent announcement(event.object(), name);
        passOn(&announcement);
        return true;
    }
#endif
    return false;
}

void passOnWhatIsToBeTold(QAccessibleEvent* event) {
    if (!isTick(*event) && !isOfHidden(*event) && !announces(*event)) {
        passOn(event);
    }
}

}  // namespace

void prepareAccessibility(KeepFromMemory keep) {
    keepFromMemory = keep;
    QAccessible::installFactory(&makeInterface);
    QAccessible::installUpdateHandler(&passOnWhatIsToBeTold);
}

}  // namespace hearthmark::ui
