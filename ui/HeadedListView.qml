// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A list with an item above its rows that scrolls along with them and may change its height. Unlike the
// toolkit's own header, it stays made however far away it is.
ListView {
    id: root

    required property Item head
    required property Component rowDelegate
    property real shownTopMargin

    // Of what stands in the list.
    readonly property real columnWidth: Math.min(Theme.pageWidth, root.width - 2 * Theme.pageMargin)
    readonly property real columnX: root.LayoutMirroring.enabled ? root.width - Theme.pageMargin - root.columnWidth : Theme.pageMargin

    // A list keeps a connection for each model that follows another of its kind, and each makes the next
    // change slower. A model of another kind ends them, but takes the delegate along.
    function changeModel(rows: QtObject) {
        root.model = nothing;
        root.model = rows;
        root.delegate = root.rowDelegate;
    }

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

    ObjectModel {
        id: nothing
    }
}
