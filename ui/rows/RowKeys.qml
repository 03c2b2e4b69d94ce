// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The keys that walk the rows of a list. A page ends with the row farthest away that is seen whole while
// the current one stands at the other end. A row that is higher than the list is scrolled through first.
Item {
    id: root

    required property ListView list

    readonly property real pageStep: root.list.height - Theme.controlHeight
    readonly property bool isLow: root.list.currentItem !== null && root.list.currentItem.height <= root.list.height

    signal upPressed
    signal downPressed
    signal homePressed
    signal endPressed
    // Each with the row that ends the page, which the keyboard need not reach.
    signal pageUpPressed(row: int)
    signal pageDownPressed(row: int)

    // Whether the row goes on in that direction, of which more is seen then.
    function scrollInRow(step: real): bool {
        const row = root.list.currentItem;
        if (!row || root.isLow)
            return false;
        // With the ring around it.
        const above = row.y - Theme.tightSpacing - root.list.contentY;
        const below = above + row.height + 2 * Theme.tightSpacing - root.list.height;
        if (step < 0 ? above >= 0 : below <= 0)
            return false;
        row.forceActiveFocus(Qt.OtherFocusReason); // not a button of it, which may go out of sight
        root.list.contentY += step < 0 ? Math.max(step, above) : Math.min(step, below);
        return true;
    }

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
        const steps = new Map([[Qt.Key_Up, -Theme.controlHeight], [Qt.Key_Down, Theme.controlHeight], [Qt.Key_PageUp, -root.pageStep], [Qt.Key_PageDown, root.pageStep]]);
        event.accepted = root.list.count > 0;
        if (!event.accepted || steps.has(event.key) && root.scrollInRow(steps.get(event.key)))
            return;
        if (event.key === Qt.Key_Up)
            root.upPressed();
        else if (event.key === Qt.Key_Down)
            root.downPressed();
        else if (event.key === Qt.Key_Home)
            root.homePressed();
        else if (event.key === Qt.Key_End)
            root.endPressed();
        else if (event.key === Qt.Key_PageUp)
            root.pageUpPressed(root.isLow ? root.rowAbove() : Math.max(0, root.list.currentIndex));
        else if (event.key === Qt.Key_PageDown)
            root.pageDownPressed(root.isLow ? root.rowBelow() : Math.max(0, root.list.currentIndex));
        else
            event.accepted = false;
    }

    Keys.onPressed: event => root.press(event)
}
