// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

// A row of tabs; the arrow keys go from one to the next, the way they point.
T.TabBar {
    id: root

    function selectBy(step: int) {
        root.setCurrentIndex(Math.max(0, Math.min(root.currentIndex + step, root.count - 1)));
        root.currentItem.forceActiveFocus(Qt.TabFocusReason);
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

    background: Rectangle {
        radius: Theme.controlRadius + 2
        color: Theme.colors.sidebar
    }
}
