// SPDX-License-Identifier: MIT
#include "ui/window/accessibility.h"

#include <QAccessible>
#include <QQuickItem>
// No version offers a public way to ask whether an item is accessible.
#include <private/qquickitem_p.h>

#include "ui/window/accessible_item.h"

// From 6.8 on the toolkit has an event for what is to be said.
#define HEARTHMARK_HAS_ANNOUNCEMENTS (QT_VERSION >= QT_VERSION_CHECK(6, 8, 0))

namespace hearthmark::ui {

namespace {

KeepFromMemory keepFromMemory = nullptr;

// Asked with the most derived class first, and so before the toolkit's own.
QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* item = qobject_cast<QQuickItem*>(object);
    if (item == nullptr) {
        return nullptr;
    }
    tellOfRow(*item);
    return QQuickItemPrivate::get(item)->isAccessible ? makeAccessibleItem(*item, keepFromMemory)
                                                      : nullptr;
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
