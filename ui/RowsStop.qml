// SPDX-License-Identifier: MIT
import QtQuick

// Stands for some rows of a list where the Tab key comes by: the rows themselves are made in no order.
// Focused, it hands the focus on to one of them.
Item {
    id: root

    required property ListView list
    required property int first
    required property int last

    // To the current row, if it is one of these.
    function enter() {
        const current = root.list.currentIndex;
        root.list.currentIndex = current >= root.first && current <= root.last ? current : root.first;
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

    activeFocusOnTab: root.first <= root.last
    onActiveFocusChanged: root.handOn()
}
