// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/status_item/status_menu.h"
#include "services/ports/status_bar.h"

namespace hearthmark::platform {

// The panel of the desktop, by whichever way it takes an item: over the session bus, or in X11's
// system tray where nobody shows one that came by the bus two seconds after the start, or after the
// panel has gone. Main thread.
class SystemStatusBar final : public services::StatusBar {
 public:
    // What the composition root does for the item. All are called from the event loop.
    struct Handlers {
        std::function<void()> addTask;
        std::function<void()> show;
        std::function<void()> checkForUpdates;
        std::function<void()> quit;
        // Of the item in X11's tray, which shows none itself.
        std::function<void(const std::vector<StatusMenu::Line>& lines, const QPoint& place)>
            showMenu;
    };

    explicit SystemStatusBar(Handlers handlers);

    // Of any length: panels know only one as wide as its content. Requires that the item that was
    // made before is gone. The button is null where there is neither a session bus nor an X server.
    std::unique_ptr<services::StatusItem> makeStatusItem(double length) override;

    // Whether the person can see the item now.
    bool isShown() const;
    // Whether that is not known yet, since a panel may be about to take it.
    bool isLooking() const;

    // Marks the item with a dot until it is clicked or this is taken back; its title stays.
    void setNeedsAttention(bool needsAttention);
    // Of the menu's line for it; false at first.
    void setCanCheckForUpdates(bool canCheckForUpdates);

 private:
    class Button;
    class Item;

    Handlers handlers_;
    bool canCheckForUpdates_ = false;
    std::weak_ptr<Button> button_;
};

}  // namespace hearthmark::platform
