// SPDX-License-Identifier: MIT
#include "ui/accessibility.h"

#include <QAccessible>
#include <QQuickItem>
// Qt 6.4 offers no public way to report a state of an item.
#include <private/qaccessiblequickitem_p.h>
#include <private/qquickitem_p.h>

namespace hearthmark::ui {

namespace {

class Item final : public QAccessibleQuickItem {
 public:
    explicit Item(QQuickItem* item) : QAccessibleQuickItem(item) {
        QObject::connect(item, &QQuickItem::enabledChanged, item, [item] {
            QAccessible::State changed;
            changed.disabled = 1;
            QAccessibleStateChangeEvent event(item, changed);
            QAccessible::updateAccessibility(&event);
        });
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleQuickItem::state();
        // A text is never used, so it is not disabled either.
        const bool isText = role() == QAccessible::StaticText || role() == QAccessible::Heading;
        state.disabled = item()->isEnabled() || isText ? 0 : 1;
        return state;
    }
};

// Asked with the most derived class first, and so before the toolkit's own.
QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* item = qobject_cast<QQuickItem*>(object);
    return item != nullptr && QQuickItemPrivate::get(item)->isAccessible ? new Item(item) : nullptr;
}

bool isRow(const QAccessibleInterface* interface) {
    return interface != nullptr && (interface->role() == QAccessible::StaticText ||
                                    interface->role() == QAccessible::ListItem);
}

bool isTick(QAccessibleEvent& event) {
    if (event.type() == QAccessible::DescriptionChanged) {
        return true;
    }
    const QAccessibleInterface* interface = event.accessibleInterface();
    if (interface == nullptr) {
        return false;
    }
    if (event.type() == QAccessible::ValueChanged) {
        return isRow(interface->parent());
    }
    return event.type() == QAccessible::NameChanged && isRow(interface);
}

// A handler stands in for the platform: to pass an event on, it must step aside.
void passOnUnlessTick(QAccessibleEvent* event) {
    if (isTick(*event)) {
        return;
    }
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(&passOnUnlessTick);
}

}  // namespace

void prepareAccessibility() {
    QAccessible::installFactory(&makeInterface);
    QAccessible::installUpdateHandler(&passOnUnlessTick);
}

}  // namespace hearthmark::ui
