// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

FocusScope {
    id: root

    required property TaskListAdapter adapter
    readonly property alias atTop: list.atYBeginning

    function showRow(row: int) {
        list.currentIndex = row;
        // Before there is room for it, it would come to stand at the top.
        if (list.height > 0)
            list.positionViewAtIndex(row, ListView.Contain);
    }

    // The first task with what stands above it.
    function stepUp() {
        const row = root.adapter.rows.taskBefore(list.currentIndex);
        root.showRow(row);
        if (root.adapter.rows.taskBefore(row) === row)
            list.contentY = list.originY;
    }

    // The current row follows its task when that changes sections, but not before the layout.
    function keepTaskCurrent() {
        list.forceLayout();
        list.currentIndex = root.adapter.rows.taskNearest(list.currentIndex);
    }

    function tapRow(row: int) {
        root.showRow(row);
        root.adapter.rows.tap(row);
    }

    ListView {
        id: list

        anchors.fill: parent
        visible: root.adapter.loaded
        focus: true
        clip: true
        bottomMargin: Theme.spacing
        cacheBuffer: Theme.controlHeight * 2
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        model: root.adapter.rows

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Tasks")
        Keys.onUpPressed: root.stepUp()
        Keys.onDownPressed: root.showRow(root.adapter.rows.taskAfter(list.currentIndex))
        Keys.onReturnPressed: root.adapter.rows.tap(list.currentIndex)
        Keys.onEnterPressed: root.adapter.rows.tap(list.currentIndex)
        Keys.onSpacePressed: root.adapter.rows.tap(list.currentIndex)
        move: shift

        ScrollBar {
            flickable: list
        }

        delegate: TaskRow {
            id: row

            width: list.width
            activeFocusOnTab: row.activeFocus || row.index === list.currentIndex
            onFocused: root.showRow(row.index)
            onTapped: root.tapRow(row.index)
            onDeletionRequested: root.adapter.rows.deleteRow(row.index)
            onMenuRequested: position => (menu.part() as DeleteMenu).openFor(row, position)
            onLineMenuRequested: (line, position) => (menu.part() as DeleteMenu).openFor(line, position)
        }
    }

    // Of a task that changes sections. Whatever makes room for it jumps, headers too: gliding, they would
    // not follow its height when that changes on the way.
    Transition {
        id: shift

        enabled: !Theme.isStill

        NumberAnimation {
            property: "y"
            duration: (shift.ViewTransition.item as TaskRow)?.isTask ? Theme.motionDuration : 0
            easing.type: Easing.OutCubic
        }
    }

    Component.onCompleted: root.keepTaskCurrent()

    Connections {
        target: root.adapter
        function onStateShown() {
            root.keepTaskCurrent();
        }
    }

    LazyPart {
        id: menu

        file: Qt.resolvedUrl("DeleteMenu.qml")
    }
}
