// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls
import Hearthmark.Ui

// The whole pane scrolls as one list: the other intervals, and above them, as its header, the rest.
Item {
    id: root

    required property TaskDetailAdapter adapter

    function showTop() {
        list.contentY = list.originY - list.topMargin;
    }

    function showRow(row: int) {
        list.currentIndex = row;
        list.positionViewAtIndex(row, ListView.Contain);
    }

    function showAnew() {
        list.currentIndex = -1;
        root.showTop();
    }

    onAdapterChanged: root.showAnew()

    ListView {
        id: list

        anchors.fill: parent
        visible: root.adapter.loaded
        clip: true
        topMargin: header.height
        bottomMargin: Theme.pageMargin
        spacing: Theme.spacing
        cacheBuffer: Theme.controlHeight * 2
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        keyNavigationEnabled: false
        // No row is current until the keyboard reaches one, else a new row would take the focus away
        // from the buttons above.
        currentIndex: -1
        model: root.adapter.nonRunningIntervals
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Other invervals")
        T.ScrollBar.vertical: ScrollBar {}

        delegate: IntervalRow {
            id: row

            width: list.width
            activeFocusOnTab: row.activeFocus || row.index === Math.max(0, list.currentIndex)
            onFocused: root.showRow(row.index)
            onDeletionRequested: root.adapter.nonRunningIntervals.deleteRow(row.index)
            onMenuRequested: position => menu.openFor(row, position)
            Keys.onUpPressed: list.decrementCurrentIndex()
            Keys.onDownPressed: list.incrementCurrentIndex()
        }
    }

    TaskDetailHeader {
        id: header

        parent: list.contentItem
        y: list.originY - header.height
        width: list.width
        adapter: root.adapter
        onReached: root.showTop()
        onMenuRequested: (row, position) => menu.openFor(row, position)
    }

    DeleteMenu {
        id: menu
    }
}
