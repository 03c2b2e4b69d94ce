// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// What stands above a task's other intervals: its name and time, its last days, the buttons that start
// a focus, and the running intervals.
FocusScope {
    id: root

    required property TaskDetailAdapter adapter
    required property OverviewAdapter overview
    readonly property Item focusedItem: root.activeFocus ? root.Window.activeFocusItem : null

    signal focusMoved
    // From the top to there this is to be brought on screen.
    signal revealed(bottom: real)
    signal menuRequested(row: DeletableRow, position: point)

    // What is there of every task, even of one that is gone.
    function focusFirst() {
        chart.enter();
    }

    function startOwnFocus() {
        start.startOwnFocus();
    }

    function revealDownTo(item: Item) {
        root.revealed(item.mapToItem(root, 0, item.height).y);
    }

    function editName() {
        name.edit();
    }

    function pressKey(event) {
        event.accepted = event.key === Qt.Key_F2;
        if (event.accepted)
            root.editName();
    }

    // A button that is disabled leaves it with the whole, on which nothing shows it.
    function revealFocus() {
        if (root.focusedItem === root)
            root.focusFirst();
        else if (root.focusedItem)
            root.revealDownTo(start.isWritten ? start : root.focusedItem); // with what it answers
    }

    Keys.onPressed: event => root.pressKey(event)
    onFocusedItemChanged: root.focusMoved()
    implicitHeight: content.height + Theme.spacing

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        TaskName {
            id: name

            adapter: root.adapter
            onFocusLost: root.focusFirst()
        }

        Label {
            readonly property bool ticks: true

            width: parent.width
            text: root.adapter.totalTimeSpent
            font.pointSize: Theme.title3Size
            color: Theme.colors.secondaryText
        }

        FocusChart {
            id: chart

            width: parent.width
            topPadding: Theme.spacing
            barsHeight: Theme.smallChartHeight
            overview: root.overview
        }

        SectionTitle {
            text: qsTr("Start a focus")
        }

        StartFocus {
            id: start

            width: parent.width
            adapter: root.adapter
        }

        SectionTitle {
            text: qsTr("Running interval(s)")
        }

        Repeater {
            model: root.adapter.runningIntervals

            RunningIntervalRow {
                id: row

                width: content.width
                onDeletionRequested: root.adapter.runningIntervals.deleteRow(row.index)
                onEditRequested: root.adapter.correctRunningInterval(row.index)
                onExtended: root.adapter.runningIntervals.extendRow(row.index)
                onMenuRequested: position => root.menuRequested(row, position)
            }
        }

        Item {
            width: parent.width
            height: Math.max(others.height, addButton.height)

            SectionTitle {
                id: others

                anchors.left: parent.left
                width: parent.width - addButton.width - Theme.spacing
                text: qsTr("Other invervals") // the program's own spelling
            }

            PushButton {
                id: addButton

                anchors.right: parent.right
                anchors.bottom: parent.bottom
                enabled: root.adapter.edit.canEdit // the task is there
                text: qsTr("Add an Interval…")
                onClicked: root.adapter.addInterval()
            }
        }
    }
}
