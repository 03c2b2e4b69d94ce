// SPDX-License-Identifier: MIT
import QtQuick

// The keys that go further through the rows of a list than to the next one. A page ends with the row
// farthest away that is seen whole while the current one stands at the other end.
Item {
    id: root

    required property ListView list

    signal homePressed
    signal endPressed
    // Each with the row that ends the page, which the keyboard need not reach.
    signal pageUpPressed(row: int)
    signal pageDownPressed(row: int)

    // At a place in the content, or below it where that is between two rows; -1 outside of all.
    function rowAt(y: real): int {
        const x = root.list.currentItem.x + 1;
        const row = root.list.indexAt(x, y);
        return row < 0 ? root.list.indexAt(x, y + root.list.spacing) : row;
    }

    function rowAbove(): int {
        root.list.positionViewAtIndex(root.list.currentIndex, ListView.End);
        root.list.forceLayout();
        const row = root.rowAt(root.list.contentY);
        return row < 0 ? 0 : root.list.itemAtIndex(row).y < root.list.contentY ? row + 1 : row;
    }

    function rowBelow(): int {
        root.list.positionViewAtIndex(root.list.currentIndex, ListView.Beginning);
        root.list.forceLayout();
        const bottom = root.list.contentY + root.list.height;
        const row = root.rowAt(bottom);
        const item = root.list.itemAtIndex(row);
        return row < 0 ? root.list.count - 1 : item.y + item.height > bottom ? row - 1 : row;
    }

    function press(event) {
        event.accepted = root.list.currentItem !== null;
        if (!event.accepted)
            return;
        if (event.key === Qt.Key_Home)
            root.homePressed();
        else if (event.key === Qt.Key_End)
            root.endPressed();
        else if (event.key === Qt.Key_PageUp)
            root.pageUpPressed(root.rowAbove());
        else if (event.key === Qt.Key_PageDown)
            root.pageDownPressed(root.rowBelow());
        else
            event.accepted = false;
    }

    Keys.onPressed: event => root.press(event)
}
