// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A list with an item above its rows that scrolls along with them and may change its height. Unlike the
// toolkit's own header, it stays made however far away it is.
FreshListView {
    id: root

    required property Item head
    property real shownTopMargin

    // Of what stands in the list.
    readonly property real columnWidth: Math.min(Theme.pageWidth, root.width - 2 * Theme.pageMargin)
    readonly property real columnX: root.LayoutMirroring.enabled ? root.width - Theme.pageMargin - root.columnWidth : Theme.pageMargin

    function showTop() {
        root.contentY = root.originY - root.topMargin;
    }

    function showRow(row: int) {
        root.currentIndex = row;
        root.positionViewAtIndex(row, ListView.Contain);
    }

    // A head that grows while it is in sight pushes the rows down instead of itself up.
    function followHead() {
        const top = root.originY - root.topMargin;
        // Where one shrank the toolkit keeps the top itself.
        const isFollowed = root.topMargin < root.shownTopMargin && root.contentY <= top;
        if (root.contentY <= root.originY && !isFollowed)
            root.contentY = Math.max(top, root.contentY - root.topMargin + root.shownTopMargin);
        root.shownTopMargin = root.topMargin;
    }

    onTopMarginChanged: root.followHead()

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

    ScrollBar {
        flickable: root
    }
}
