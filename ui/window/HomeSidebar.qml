// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The column of the task list, with the button of the application menu above it and "Add Task" below.
FocusScope {
    id: root

    required property HomeAdapter home
    // On which the key acts that is told here.
    required property FocusScope screen

    signal menuRequested(button: Item)

    // A list without tasks would have the keyboard unseen, and nothing for it to act on.
    function passFocus() {
        const from = list.isEmpty ? list : addButton;
        const to = list.isEmpty ? addButton : list;
        if (from.focus)
            to.focus = true;
    }

    // A search would hide the new one.
    function addTask() {
        if (root.home.taskList.isSearchOpen)
            list.closeSearch();
        root.home.displayAddSheet();
    }

    // The keyboard's home where what had it is gone.
    function takeFocus() {
        (list.isEmpty ? addButton : list).focus = true;
        root.focus = true;
        list.showNewest();
    }

    Connections {
        target: root.home
        function onSearchRequested() {
            list.openSearch("");
        }
    }

    Shortcut {
        sequences: Shortcuts.search
        enabled: root.screen.activeFocus
        onActivated: list.openSearch("")
    }

    Box {
        anchors.fill: parent
        color: Theme.colors.sidebar
    }

    Item {
        id: header

        width: parent.width
        height: menuButton.height + 2 * Theme.spacing

        Label {
            anchors.left: parent.left
            anchors.leftMargin: Theme.wideSpacing
            anchors.verticalCenter: parent.verticalCenter
            text: "Hearthmark"
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        SymbolButton {
            id: menuButton

            anchors.right: parent.right
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            symbol: "menu"
            text: qsTr("Application menu")
            onClicked: root.menuRequested(menuButton)
        }
    }

    Box {
        anchors.bottom: list.top
        width: parent.width
        height: 1
        visible: !list.atTop
        color: Theme.colors.separator
    }

    TaskListView {
        id: list

        anchors.top: header.bottom
        anchors.bottom: separator.top
        width: parent.width
        focus: true
        adapter: root.home.taskList
        onRenameRequested: root.home.renameRequested()
        onIsEmptyChanged: root.passFocus()
    }

    Box {
        id: separator

        anchors.bottom: footer.top
        width: parent.width
        height: 1
        color: Theme.colors.separator
    }

    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: addButton.height + 2 * Theme.spacing

        PushButton {
            id: addButton

            anchors.centerIn: parent
            width: parent.width - 2 * Theme.spacing
            symbol: "plus"
            text: qsTr("Add Task")
            onClicked: root.addTask()
        }
    }
}
