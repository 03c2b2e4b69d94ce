// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The content of the restore sheet: the backups, what the selected one would change, and the button
// that goes back to it.
SheetForm {
    id: root

    required property RestoreAdapter adapter

    signal closed

    Label {
        width: parent.width
        text: qsTr("Restore from a backup")
        font.pointSize: Theme.title2Size
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }

    Label {
        width: parent.width
        text: root.adapter.isEmpty ? root.adapter.fault || qsTr("There are no backups yet. The first start of each day makes one, once there is a task.") : qsTr("All tasks, intervals and notes become what they were then. What you have now is kept as one more backup.")
        wrapMode: Text.Wrap
    }

    Rectangle {
        width: parent.width
        height: Theme.backupsHeight
        visible: !root.adapter.isEmpty
        radius: Theme.radius
        color: Theme.colors.window
        border.width: list.activeFocus ? Theme.focusWidth : 1
        border.color: list.activeFocus ? Theme.colors.focus : Theme.colors.separator

        ListView {
            id: list

            function select(row: int) {
                list.currentIndex = row;
                list.positionViewAtIndex(row, ListView.Contain);
                root.adapter.select(row);
                root.show(changes, changes.implicitHeight);
            }

            anchors.fill: parent
            anchors.margins: Theme.tightSpacing
            clip: true
            activeFocusOnTab: true
            focus: !root.adapter.isEmpty
            boundsBehavior: Flickable.StopAtBounds
            highlightFollowsCurrentItem: false
            keyNavigationEnabled: false
            currentIndex: -1
            model: root.adapter.rows
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Backups")
            Keys.forwardTo: [keys]

            RowKeys {
                id: keys

                list: list
                onUpPressed: list.select(Math.max(list.currentIndex - 1, 0))
                onDownPressed: list.select(Math.min(list.currentIndex + 1, list.count - 1))
                onHomePressed: list.select(0)
                onEndPressed: list.select(list.count - 1)
                onPageUpPressed: row => list.select(row)
                onPageDownPressed: row => list.select(row)
            }

            ScrollBar {
                flickable: list
            }

            delegate: BackupRow {
                width: list.width
                onTapped: row => list.select(row)
            }
        }
    }

    // As high as it can become, so that the rows stay where they are when one is selected.
    Label {
        id: changes

        width: parent.width
        height: Math.max(implicitHeight, Theme.changesHeight)
        visible: !root.adapter.isEmpty
        text: root.adapter.fault.length > 0 ? root.adapter.fault : root.adapter.changes
        wrapMode: Text.Wrap
    }

    buttons: [
        PushButton {
            focus: root.adapter.isEmpty
            text: root.adapter.isEmpty ? qsTr("Close") : qsTr("Cancel")
            onClicked: root.closed()
        },
        PushButton {
            visible: !root.adapter.isEmpty
            enabled: root.adapter.canRestore
            look: PushButton.Primary
            text: qsTr("Restore and Restart")
            onClicked: root.adapter.restore()
        }
    ]
}
