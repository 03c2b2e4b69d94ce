// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// All sections of the task list, of which the tasks and what folds can be reached by the keyboard.
ListView {
    id: root

    required property TaskListModel rows

    // The current task has come to another section, where it is to be seen.
    property bool isMoved: false

    // The task that is selected now.
    signal renameRequested
    signal menuRequested(row: DeletableRow, position: point)
    // From the first task.
    signal leftUpwards

    function showRow(row: int) {
        root.currentIndex = row;
        // Before there is room for it, it would come to stand at the top.
        if (root.height > 0)
            root.positionViewAtIndex(row, ListView.Contain);
    }

    // The first task with what stands above it.
    function showTask(task: int) {
        root.showRow(task);
        if (root.rows.stopBefore(task) === task)
            root.contentY = root.originY;
    }

    // With as much of what stands above it as there is room for. To pass by the top on the way would make the
    // rows there for nothing, with each letter of a search.
    function showFromTop(row: int) {
        root.forceLayout();
        root.currentIndex = row;
        if (root.currentItem)
            root.contentY = Math.max(root.originY, Math.min(root.currentItem.y, root.currentItem.y + root.currentItem.height - root.height));
        root.showRow(row);
    }

    function takeFocus() {
        (root.currentItem ?? root).forceActiveFocus(Qt.OtherFocusReason);
    }

    // By the keyboard.
    function walkTo(row: int) {
        root.showTask(root.rows.stopNearest(row));
        if (root.currentItem)
            (root.currentItem as TaskListRow).isWalkedTo = true;
    }

    function walkUp() {
        const row = root.rows.stopBefore(root.currentIndex);
        const isFirst = row === root.currentIndex;
        root.walkTo(row);
        if (isFirst)
            root.leftUpwards();
    }

    // The current row follows its task when that changes sections, but not before the layout.
    function keepTaskCurrent() {
        root.forceLayout();
        root.currentIndex = root.rows.stopNearest(root.currentIndex);
        if (root.isMoved)
            root.showTask(root.currentIndex);
        root.isMoved = false;
    }

    // One that finishes by itself must not scroll what is being looked at.
    function followMove(row: TaskListRow) {
        if (row.ListView.isCurrentItem && (row.ticks || root.activeFocus))
            root.isMoved = true;
    }

    function tapRow(row: int) {
        root.showRow(row);
        root.rows.tap(row);
    }

    function renameRow(row: int) {
        root.tapRow(row);
        root.renameRequested();
    }

    clip: true
    bottomMargin: Theme.spacing
    cacheBuffer: Theme.controlHeight * 2
    boundsBehavior: Flickable.StopAtBounds
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    model: root.rows

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Tasks")
    Keys.forwardTo: [rowKeys]
    Keys.onReturnPressed: root.rows.tap(root.currentIndex)
    Keys.onEnterPressed: root.rows.tap(root.currentIndex)
    Keys.onSpacePressed: root.rows.tap(root.currentIndex)
    Component.onCompleted: root.keepTaskCurrent()
    move: shift

    RowKeys {
        id: rowKeys

        list: root
        onUpPressed: root.walkUp()
        onDownPressed: root.walkTo(root.rows.stopAfter(root.currentIndex))
        onHomePressed: root.walkTo(root.rows.stopAfter(-1))
        onEndPressed: root.walkTo(root.rows.stopBefore(root.count))
        onPageUpPressed: row => root.walkTo(Math.min(root.rows.stopAfter(row - 1), root.rows.stopBefore(root.currentIndex)))
        onPageDownPressed: row => root.walkTo(Math.max(root.rows.stopBefore(row + 1), root.rows.stopAfter(root.currentIndex)))
    }

    ScrollBar {
        flickable: root
    }

    delegate: TaskListRow {
        id: row

        width: root.width
        activeFocusOnTab: row.activeFocus || row.index === root.currentIndex
        onFocused: root.showRow(row.index)
        onTapped: root.tapRow(row.index)
        onEditRequested: root.renameRow(row.index)
        onTicksChanged: root.followMove(row)
        onDeletionRequested: root.rows.deleteRow(row.index)
        onMenuRequested: position => root.menuRequested(row, position)
        onLineMenuRequested: (line, position) => root.menuRequested(line, position)
    }

    // Of a task that changes sections. Whatever makes room for it jumps, headers too: gliding, they would
    // not follow its height when that changes on the way.
    Transition {
        id: shift

        enabled: !Theme.isStill

        NumberAnimation {
            property: "y"
            duration: (shift.ViewTransition.item as TaskListRow)?.isTask ? Theme.motionDuration : 0
            easing.type: Easing.OutCubic
        }
    }
}
