// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

// A row of tabs; the arrow keys go from one to the next, the way they point.
T.TabBar {
    id: root

    function selectBy(step: int) {
        root.setCurrentIndex(Math.max(0, Math.min(root.currentIndex + step, root.count - 1)));
        root.currentItem.forceActiveFocus(Qt.TabFocusReason);
    }

    // All tabs get the same width: a whole number, else some versions of Qt show their texts between two pixels.
    contentWidth: {
        let width = 0;
        for (let i = 0; i < root.count; ++i)
            width += root.itemAt(i)?.implicitWidth ?? 0;
        return root.count * Math.ceil(width / Math.max(1, root.count)) + Math.max(0, root.count - 1) * root.spacing;
    }
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 3
    spacing: 2

    Accessible.role: Accessible.PageTabList
    Keys.onLeftPressed: root.selectBy(root.mirrored ? 1 : -1)
    Keys.onRightPressed: root.selectBy(root.mirrored ? -1 : 1)

    contentItem: ListView {
        implicitHeight: Theme.controlHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        spacing: root.spacing
        orientation: ListView.Horizontal
        interactive: false
    }

    background: Box {
        radius: Theme.controlRadius + 2
        color: Theme.colors.sidebar
    }
}
