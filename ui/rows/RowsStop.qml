// SPDX-License-Identifier: MIT
import QtQuick

// Stands for some rows of a list where the Tab key comes by: the rows themselves are made in no order.
// Focused, it hands the focus on to the first of them; its end, where one comes by from behind, to the last
// in that row that takes it.
Item {
    id: root

    required property ListView list
    required property int row
    required property int count

    function enter() {
        root.list.currentIndex = root.row;
        root.list.currentItem.forceActiveFocus(Qt.TabFocusReason);
    }

    function enterBackward() {
        root.enter();
        (root.list.currentItem as TaskDetailRow).focusLast();
    }

    function handOn() {
        if (end.activeFocus)
            root.enterBackward();
        else if (root.activeFocus)
            root.enter();
    }

    function leaveForward() {
        end.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
    }

    function leaveBackward() {
        root.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
    }

    activeFocusOnTab: root.count > 0
    onActiveFocusChanged: root.handOn()

    Item {
        id: end

        activeFocusOnTab: root.activeFocusOnTab
        onActiveFocusChanged: root.handOn()
    }
}
