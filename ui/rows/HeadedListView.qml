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

    // Whole with the ring around it, or where it is higher than the view nothing but it.
    function showRow(row: int) {
        if (!root.itemAtIndex(row))
            root.positionViewAtIndex(row, ListView.Contain);
        root.currentIndex = row;
        if (!root.currentItem)
            return;
        const top = root.currentItem.y - Theme.tightSpacing;
        const bottom = root.currentItem.y + root.currentItem.height + Theme.tightSpacing - root.height;
        root.contentY = Math.max(Math.min(top, bottom), Math.min(root.contentY, Math.max(top, bottom)));
    }

    // By the keyboard: the first row with as much of what stands above it as there is room for.
    function walkTo(row: int) {
        root.showRow(row);
        const bottom = root.currentItem.y + root.currentItem.height + Theme.tightSpacing;
        if (root.rows.rowBefore(row) === row)
            root.contentY = Math.max(root.originY - root.topMargin, Math.min(root.contentY, bottom - root.height));
    }

    function walkToFirst() {
        root.showTop();
        root.walkTo(root.rows.rowAfter(-1));
    }

    // How far what has the keyboard is above the view, or below it, with the ring around it.
    function focusOverhang(): real {
        const item = root.Window.activeFocusItem;
        const top = item.mapToItem(root, 0, -Theme.tightSpacing).y;
        const bottom = item.mapToItem(root, 0, item.height + Theme.tightSpacing).y;
        return top < 0 ? top : Math.max(0, bottom - root.height);
    }

    // Where no row is current: what stands in the head may be higher than the view. What has the keyboard
    // may go out of sight, but not in part.
    function scrollByKey(event) {
        const steps = new Map([[Qt.Key_PageUp, -keys.pageStep], [Qt.Key_PageDown, keys.pageStep], [Qt.Key_Home, -Infinity], [Qt.Key_End, Infinity]]);
        event.accepted = steps.has(event.key);
        if (!event.accepted)
            return;
        root.scrollBy(steps.get(event.key));
        const overhang = root.focusOverhang();
        if (Math.abs(overhang) < root.Window.activeFocusItem.height + Theme.tightSpacing)
            root.scrollBy(overhang);
    }

    // Back, before it is used.
    function showBeforeUse(event) {
        const isUse = [Qt.Key_Left, Qt.Key_Right, Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space, Qt.Key_Delete, Qt.Key_Menu].includes(event.key);
        event.accepted = false;
        if (isUse && root.focusOverhang() !== 0)
            root.focusDisplaced();
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

    Keys.onShortcutOverride: event => root.showBeforeUse(event)
    Keys.onPressed: event => root.scrollByKey(event)
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
        onHomePressed: root.walkToFirst()
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
