// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// A list with an item above its rows that scrolls along with them and may change its height. Unlike the
// toolkit's own header, it stays made however far away it is.
FreshListView {
    id: root

    required property TaskDetailListModel rows
    required property Item head
    readonly property alias rowKeys: keys
    property real shownTopMargin

    // Of what stands in the list.
    readonly property real columnWidth: Math.min(Theme.pageWidth, root.width - 2 * Theme.pageMargin)
    readonly property real columnX: root.LayoutMirroring.enabled ? root.width - Theme.pageMargin - root.columnWidth : Theme.pageMargin

    // What has the keyboard may be out of sight. Told once all that moves has moved.
    signal focusDisplaced

    function displaceFocus() {
        moving.restart();
    }

    // Down to there, from its top where there is room for that.
    function showHead(bottom: real) {
        root.contentY = Math.max(root.originY - root.topMargin, root.head.y + bottom + Theme.spacing - root.height);
    }

    function showTop() {
        root.contentY = root.originY - root.topMargin;
    }

    function showRow(row: int) {
        root.currentIndex = row;
        root.positionViewAtIndex(row, ListView.Contain);
    }

    // By the keyboard: the first row with as much of what stands above it as there is room for.
    function walkTo(row: int) {
        root.showRow(row);
        const bottom = root.currentItem.y + root.currentItem.height;
        if (root.rows.rowBefore(row) === row)
            root.contentY = Math.max(root.originY - root.topMargin, Math.min(root.contentY, bottom - root.height));
    }

    // Where no row is current: what stands in the head may be higher than the view.
    function scrollByPage(event) {
        const page = root.height - Theme.controlHeight;
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        if (event.accepted)
            root.scrollBy(event.key === Qt.Key_PageUp ? -page : page);
    }

    // A row that stays current would take the focus when the rows before it change.
    function leaveRows(part: Item) {
        if (part.activeFocus)
            root.currentIndex = -1;
    }

    // A head that grows while it is in sight pushes the rows down instead of itself up.
    function followHead() {
        const top = root.originY - root.topMargin;
        // Where one shrank the toolkit keeps the top itself.
        const isFollowed = root.topMargin < root.shownTopMargin && root.contentY <= top;
        if (root.contentY <= root.originY && !isFollowed)
            root.contentY = Math.max(top, root.contentY - root.topMargin + root.shownTopMargin);
        root.shownTopMargin = root.topMargin;
        root.displaceFocus();
    }

    Keys.onPressed: event => root.scrollByPage(event)
    onTopMarginChanged: root.followHead()
    onHeightChanged: root.displaceFocus()

    clip: true
    topMargin: root.head.height
    bottomMargin: Theme.pageMargin
    spacing: Theme.spacing
    cacheBuffer: Theme.controlHeight * 2
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    keyNavigationEnabled: false
    // No row is current until the keyboard reaches one, else a new row would take the focus away from
    // the head.
    currentIndex: -1
    Accessible.role: Accessible.List

    RowKeys {
        id: keys

        list: root
        onUpPressed: root.walkTo(root.rows.rowBefore(root.currentIndex))
        onDownPressed: root.walkTo(root.rows.rowAfter(root.currentIndex))
        onHomePressed: root.walkTo(root.rows.rowAfter(-1))
        onEndPressed: root.walkTo(root.rows.rowBefore(root.count))
        onPageUpPressed: row => root.walkTo(Math.min(root.rows.rowAfter(row - 1), root.rows.rowBefore(root.currentIndex)))
        onPageDownPressed: row => root.walkTo(Math.max(root.rows.rowBefore(row + 1), root.rows.rowAfter(root.currentIndex)))
    }

    Timer {
        id: moving

        interval: 0
        onTriggered: root.focusDisplaced()
    }

    ScrollBar {
        flickable: root
    }
}
