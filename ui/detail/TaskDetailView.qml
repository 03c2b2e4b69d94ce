// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// One task: a toolbar, all there is to the task below it, and the share sheet over both.
Item {
    id: root

    required property HomeAdapter home
    // On which the keys act that are told here.
    required property FocusScope screen
    readonly property TaskDetailAdapter adapter: root.home.taskDetail

    Connections {
        target: root.home
        function onRenameRequested() {
            (list.head as TaskDetailHeader).editName();
        }
    }

    Shortcut {
        sequences: Shortcuts.addNote
        enabled: root.screen.activeFocus
        onActivated: list.addNote()
    }

    Shortcut {
        sequences: Shortcuts.startShortFocus
        enabled: root.screen.activeFocus
        onActivated: root.adapter.startShortFocus()
    }

    Shortcut {
        sequences: Shortcuts.startLongFocus
        enabled: root.screen.activeFocus
        onActivated: root.adapter.startLongFocus()
    }

    Shortcut {
        sequences: Shortcuts.startOwnFocus
        enabled: root.screen.activeFocus
        onActivated: (list.head as TaskDetailHeader).startOwnFocus()
    }

    Shortcut {
        sequences: Shortcuts.markDone
        enabled: root.screen.activeFocus
        onActivated: root.adapter.toggleDone()
    }

    Shortcut {
        sequences: Shortcuts.addInterval
        enabled: root.screen.activeFocus && shareButton.enabled
        onActivated: root.adapter.addInterval()
    }

    Shortcut {
        sequences: Shortcuts.share
        enabled: root.screen.activeFocus && shareButton.enabled
        onActivated: root.adapter.displayShareSheet()
    }

    Item {
        id: toolbar

        width: parent.width
        height: shareButton.height + 2 * Theme.spacing

        PushButton {
            id: shareButton

            anchors.right: parent.right
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            symbol: "square.and.arrow.up"
            enabled: list.canWrite // the task is there
            text: qsTr("Share")
            onClicked: root.adapter.displayShareSheet()
        }

        Box {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            visible: !list.atYBeginning
            color: Theme.colors.separator
        }
    }

    LoadedTaskDetailView {
        id: list

        anchors.fill: parent
        anchors.topMargin: toolbar.height
        visible: root.adapter.loaded
        adapter: root.adapter
        overview: root.home.overview
        onMenuRequested: (row, position) => (popups.part() as TaskDetailPopups).openMenu(row, position)
    }

    LazyPart {
        id: popups

        file: Qt.resolvedUrl("TaskDetailPopups.qml")
        given: ({
                view: root
            })
        wanted: root.adapter.isShareSheetDisplayed || root.adapter.wholeNote !== null || root.adapter.correction !== null
    }
}
