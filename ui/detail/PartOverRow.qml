// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// What lies over a row of the pane and is no part of it: the pane makes rows only for what is visible, and
// nothing that is typed may go when it scrolls away.
FocusScope {
    id: root

    required property HeadedListView list
    required property int row
    // Absent while it is too far out of sight.
    property Item place

    // A part of this.
    function show(top: real, bottom: real) {
        if (!root.list.itemAtIndex(root.row))
            root.list.positionViewAtIndex(root.row, ListView.Contain);
        root.list.forceLayout();
        root.list.contentY = Math.min(root.y + top, Math.max(root.y + bottom + Theme.spacing - root.list.height, root.list.contentY));
    }

    x: root.list.columnX
    y: root.place ? root.place.y : root.list.head.y - root.height
    width: root.list.columnWidth
    height: root.implicitHeight
    onActiveFocusChanged: root.list.leaveRows(root)
}
