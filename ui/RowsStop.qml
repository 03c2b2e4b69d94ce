// SPDX-License-Identifier: MIT
import QtQuick

// Stands for some rows of a list where the Tab key comes by: the rows themselves are made in no order.
// Focused, it hands the focus on to the first of them.
Item {
    id: root

    required property ListView list
    required property int row
    required property int count

    function enter() {
        root.list.currentIndex = root.row;
        root.list.currentItem.forceActiveFocus(Qt.TabFocusReason);
    }

    function handOn() {
        if (root.activeFocus)
            root.enter();
    }

    function leaveForward() {
        root.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
    }

    function leaveBackward() {
        root.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
    }

    activeFocusOnTab: root.count > 0
    onActiveFocusChanged: root.handOn()
}
