// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The tasks of the range with their times, sorted by the column whose header was pressed.
FocusScope {
    id: root

    required property HistoryAdapter adapter
    readonly property bool isStacked: root.width < 1.2 * Theme.chartTextsWidth
    readonly property real numberWidth: root.isStacked ? root.width / 3 : Theme.historyNumberWidth

    Item {
        id: header

        width: parent.width
        height: columns.y + columns.height
        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Columns")

        HistoryColumn {
            id: taskColumn

            anchors.left: parent.left
            anchors.leftMargin: Theme.tightSpacing
            width: root.isStacked ? parent.width - 2 * Theme.tightSpacing : parent.width - columns.width - Theme.spacing
            adapter: root.adapter
            column: HistoryAdapter.Task
            text: qsTr("Task")
        }

        Row {
            id: columns

            anchors.right: parent.right
            y: root.isStacked ? taskColumn.height : 0

            HistoryColumn {
                width: root.numberWidth
                adapter: root.adapter
                column: HistoryAdapter.TimeSpent
                text: qsTr("Time")
            }

            HistoryColumn {
                width: root.numberWidth
                adapter: root.adapter
                column: HistoryAdapter.Share
                text: qsTr("Share")
            }

            HistoryColumn {
                width: root.numberWidth
                adapter: root.adapter
                column: HistoryAdapter.Focuses
                text: qsTr("Focuses")
            }
        }

        Box {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.colors.separator
        }
    }

    Label {
        anchors.top: header.bottom
        anchors.topMargin: Theme.spacing
        anchors.horizontalCenter: parent.horizontalCenter
        visible: list.count === 0
        text: qsTr("No focus was started here.")
        color: Theme.colors.secondaryText
    }

    FreshListView {
        id: list

        function walkTo(row: int) {
            list.currentIndex = Math.max(0, Math.min(row, list.count - 1));
            list.positionViewAtIndex(list.currentIndex, ListView.Contain);
        }

        anchors.top: header.bottom
        anchors.topMargin: Theme.tightSpacing
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        bottomMargin: Theme.spacing
        activeFocusOnTab: list.count > 0 || list.activeFocus // not taken away while it has the keyboard
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        model: root.adapter?.rows ?? null
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Tasks of the range")
        Keys.forwardTo: [keys]
        Keys.onReturnPressed: root.adapter.openTask(list.currentIndex)
        Keys.onEnterPressed: root.adapter.openTask(list.currentIndex)
        Keys.onSpacePressed: root.adapter.openTask(list.currentIndex)

        RowKeys {
            id: keys

            list: list
            onUpPressed: list.walkTo(list.currentIndex - 1)
            onDownPressed: list.walkTo(list.currentIndex + 1)
            onHomePressed: list.walkTo(0)
            onEndPressed: list.walkTo(list.count - 1)
            onPageUpPressed: row => list.walkTo(row)
            onPageDownPressed: row => list.walkTo(row)
        }

        ScrollBar {
            flickable: list
        }

        delegate: HistoryRow {
            id: row

            width: list.width
            isStacked: root.isStacked
            numberWidth: root.numberWidth
            isMarked: row.activeFocus
            focus: row.ListView.isCurrentItem
            onTapped: root.adapter.openTask(row.index)
        }
    }
}
