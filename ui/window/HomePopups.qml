// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The sheets over the home screen, and its application menu.
Item {
    id: root

    required property HomeAdapter home

    property Item menuButton

    function openMenu(button: Item) {
        root.menuButton = button;
        root.home.startAtLogin.refresh();
        root.showMenu();
    }

    // Below the button that asks for it, flush with its outer side.
    function showMenu() {
        const button = root.menuButton;
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

        StartAtLoginView {
            startAtLogin: root.home.startAtLogin
        }

        ContextMenuItem {
            text: qsTr("Restore from a backup…")
            onTriggered: restore.open()
        }

        ContextMenuItem {
            text: qsTr("Export Everything…")
            onTriggered: root.home.fileTransfer.exportEverything()
        }

        ContextMenuItem {
            text: qsTr("Import…")
            onTriggered: root.home.fileTransfer.importEverything()
        }

        ContextMenuItem {
            text: qsTr("Search")
            shortcutText: Shortcuts.search[0]
            onTriggered: root.home.searchRequested()
        }

        ContextMenuItem {
            text: qsTr("History")
            shortcutText: Shortcuts.history[0]
            onTriggered: root.home.openHistory()
        }

        ContextMenuItem {
            text: root.home.undoMenu.undoText || qsTr("Undo")
            shortcutText: Shortcuts.undo[0]
            enabled: root.home.undoMenu.undoText !== ""
            onTriggered: root.home.undoMenu.undo()
        }

        ContextMenuItem {
            text: root.home.undoMenu.redoText || qsTr("Redo")
            shortcutText: Shortcuts.redo[0]
            enabled: root.home.undoMenu.redoText !== ""
            onTriggered: root.home.undoMenu.redo()
        }

        ContextMenuItem {
            text: qsTr("Keyboard Shortcuts")
            shortcutText: Shortcuts.showShortcuts[0]
            onTriggered: shortcuts.open()
        }

        ContextMenuItem {
            text: qsTr("Quit")
            shortcutText: Shortcuts.quit[0]
            onTriggered: root.home.quit()
        }
    }

    // The menu comes back with the reason.
    Connections {
        target: root.home.startAtLogin

        function onFailed() {
            root.showMenu();
        }
    }

    AddTaskView {
        visible: root.home.isAddSheetDisplayed
        adapter: root.home.addTask
        onClosed: root.home.dismissAddSheet()
    }

    AboutSheet {
        id: about

        about: root.home.about
    }

    RestoreSheet {
        id: restore

        adapter: root.home.restore
    }

    FileTransferSheet {
        transfer: root.home.fileTransfer
    }

    ShortcutsSheet {
        id: shortcuts
    }

    UpdateSheet {
        updates: root.home.updates
    }
}
