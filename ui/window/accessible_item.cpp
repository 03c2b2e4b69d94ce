// SPDX-License-Identifier: MIT
#include "ui/window/accessible_item.h"

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

namespace hearthmark::ui {

namespace {

constexpr auto kTicks = "ticks";
constexpr bool kListsHideRows = QT_VERSION >= QT_VERSION_CHECK(6, 8, 0);

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

// Also tells what can be checked, and lets assistive programs write into the editors, open the
// rows' menus and ask how far a progress bar is.
class AccessibleItem final : public QAccessibleQuickItem, public QAccessibleEditableTextInterface {
 public:
    AccessibleItem(QQuickItem* item, KeepFromMemory keep)
        : QAccessibleQuickItem(item), keepFromMemory_(keep) {
#if HEARTHMARK_REPORTS_DISABLED_ITEMS
        QObject::connect(item, &QQuickItem::enabledChanged, item, [item] {
            QAccessible::State changed;
            changed.disabled = 1;
            QAccessibleStateChangeEvent event(item, changed);
            QAccessible::updateAccessibility(&event);
        });
#endif
    }

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
        if (keepFromMemory_ != nullptr && role() == QAccessible::ListItem &&
            item()->property(kTicks).isValid()) {
            // After the answer, which is being made.
            QMetaObject::invokeMethod(
                item(),
                [keep = keepFromMemory_, item = item(),
                 name = QAccessibleQuickItem::text(QAccessible::Name),
                 description = QAccessibleQuickItem::text(QAccessible::Description)] {
                    if (auto* const told = QAccessible::queryAccessibleInterface(item)) {
                        keep(*told, name, description);
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
    void tellOfRows() const {
        if (kListsHideRows && item()->inherits("QQuickListView")) {
            for (QQuickItem* row :
                 item()->property("contentItem").value<QQuickItem*>()->childItems()) {
                tellOfRow(*row);
            }
        }
    }
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

    KeepFromMemory keepFromMemory_;
};

}  // namespace

QAccessibleInterface* makeAccessibleItem(QQuickItem& item, KeepFromMemory keep) {
    return new AccessibleItem(&item, keep);
}

bool ticks(const QObject* item) {
    return item != nullptr && item->property(kTicks).toBool();
}

void tellOfRow([[maybe_unused]] QQuickItem& item) {
    if constexpr (kListsHideRows) {
        const QQuickItem* const content = item.parentItem();
        const QQuickItem* const view = content != nullptr ? content->parentItem() : nullptr;
        if (view != nullptr && view->inherits("QQuickListView") &&
            QQuickAccessibleAttached::attachedProperties(&item) != nullptr) {
            QQuickItemPrivate::get(&item)->isAccessible = true;
        }
    }
}

}  // namespace hearthmark::ui
