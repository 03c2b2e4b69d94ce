// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The sheets over the home screen, and its application menu.
Item {
    id: root

    required property HomeAdapter home

    // Below the button that asks for it, flush with its outer side.
    function openMenu(button: Item) {
        menu.popup(button, button.LayoutMirroring.enabled ? 0 : button.width - Theme.menuWidth, button.height, aboutItem);
    }

    function openShortcuts() {
        shortcuts.open();
    }

    ContextMenu {
        id: menu

        ContextMenuItem {
            id: aboutItem

            text: qsTr("About Hearthmark")
            onTriggered: about.open()
        }

        CheckForUpdatesView {
            updates: root.home.updates
        }

        ContextMenuItem {
            text: qsTr("Keyboard Shortcuts")
            shortcutText: "F1"
            onTriggered: shortcuts.open()
        }

        ContextMenuItem {
            text: qsTr("Quit")
            shortcutText: "Ctrl+Q"
            onTriggered: root.home.quit()
        }
    }

    AddTaskSheet {
        visible: root.home.addTask !== null
        adapter: root.home.addTask
        onClosed: root.home.dismissAddSheet()
    }

    AboutSheet {
        id: about

        about: root.home.about
    }

    ShortcutsSheet {
        id: shortcuts
    }

    UpdateSheet {
        updates: root.home.updates
    }
}
