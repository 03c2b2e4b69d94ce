// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Goes back to an earlier state of all tasks: the backups, what the selected one would change, and the
// button that restores it.
Sheet {
    id: root

    required property RestoreAdapter adapter

    title: qsTr("Restore from a backup")
    preferredWidth: Theme.backupsWidth
    onAboutToShow: root.adapter.load()

    Paragraph {
        text: root.adapter.isEmpty ? root.adapter.fault || qsTr("There are no backups yet. The first start of each day makes one, once there is a task.") : qsTr("All tasks, intervals and notes become what they were then. What you have now is kept as one more backup.")
    }

    FocusFrame {
        width: parent.width
        height: Theme.backupsHeight
        visible: !root.adapter.isEmpty
        framed: list

        ListView {
            id: list

            function select(row: int) {
                list.currentIndex = row;
                list.positionViewAtIndex(row, ListView.Contain);
                root.adapter.select(row);
                (changes.parent as Column).forceLayout(); // else what it shows is placed by the next frame only
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
    Paragraph {
        id: changes

        height: Math.max(implicitHeight, Theme.changesHeight)
        visible: !root.adapter.isEmpty
        text: root.adapter.fault.length > 0 ? root.adapter.fault : root.adapter.changes
    }

    buttons: [
        PushButton {
            focus: root.adapter.isEmpty
            text: root.adapter.isEmpty ? qsTr("Close") : qsTr("Cancel")
            onClicked: root.close()
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
