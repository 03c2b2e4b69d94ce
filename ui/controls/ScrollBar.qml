// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// Beside what scrolls up and down: shows which part of it is visible, and can be dragged. A press
// beside the handle brings it there.
Item {
    id: root

    required property Flickable flickable
    readonly property real shownShare: root.flickable.visibleArea.heightRatio
    readonly property real room: root.height - handle.height

    function moveHandle(y: real) {
        const hidden = root.flickable.height / root.shownShare - root.flickable.height;
        const share = Math.max(0, Math.min(y / root.room, 1));
        root.flickable.contentY = root.flickable.originY - root.flickable.topMargin + share * hidden;
    }

    function press(y: real) {
        const isOnHandle = y >= handle.y && y < handle.y + handle.height;
        area.grip = isOnHandle ? y - handle.y : handle.height / 2;
        root.moveHandle(y - area.grip);
    }

    parent: root.flickable
    anchors.top: parent.top
    anchors.bottom: parent.bottom
    anchors.right: parent.right
    width: 6
    visible: root.shownShare < 1

    Box {
        id: handle

        x: 1
        y: root.shownShare < 1 ? root.flickable.visibleArea.yPosition / (1 - root.shownShare) * root.room : 0
        width: parent.width - 2
        height: Math.max(root.shownShare, 0.06) * root.height
        radius: width / 2
        color: area.pressed || area.containsMouse ? Theme.colors.scrollBarPressed : Theme.colors.scrollBar
    }

    MouseArea {
        id: area

        // How far below the top of the handle it is held.
        property real grip

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => root.press(mouse.y)
        onPositionChanged: mouse => {
            if (area.pressed)
                root.moveHandle(mouse.y - area.grip);
        }
    }
}
