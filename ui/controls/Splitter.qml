// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The border between two parts that stand side by side, where the first one begins at the side on which
// one begins to read. It is dragged, or moved by the arrow keys; a double click or Enter puts it back.
Item {
    id: root

    required property string text
    // How wide the first part is at first, at least and at most.
    required property real usual
    required property real least
    required property real most
    // Behind the first part.
    readonly property real position: Math.max(root.least, Math.min(root.usual + root.shift, root.most))
    property real shift: 0

    function moveTo(position: real) {
        root.shift = Math.max(root.least, Math.min(position, root.most)) - root.usual;
    }

    function moveBy(step: real) {
        root.moveTo(root.position + step);
    }

    // The arrow keys go the way they point.
    function moveByArrow(step: real) {
        root.moveBy(root.LayoutMirroring.enabled ? -step : step);
    }

    function putBack() {
        root.shift = 0;
    }

    implicitWidth: 2 * Theme.tightSpacing + 1
    activeFocusOnTab: true
    Accessible.role: Accessible.Splitter
    Accessible.name: root.text
    Accessible.focusable: true
    Accessible.onIncreaseAction: root.moveBy(Theme.wideSpacing)
    Accessible.onDecreaseAction: root.moveBy(-Theme.wideSpacing)
    Keys.onLeftPressed: root.moveByArrow(-Theme.wideSpacing)
    Keys.onRightPressed: root.moveByArrow(Theme.wideSpacing)
    Keys.onReturnPressed: root.putBack()
    Keys.onEnterPressed: root.putBack()

    Box {
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.activeFocus || area.pressed ? Theme.focusWidth + 1 : 1
        height: parent.height
        color: root.activeFocus ? Theme.colors.focus : area.pressed || area.containsMouse ? Theme.colors.fieldBorder : Theme.colors.separator
    }

    MouseArea {
        id: area

        // How far behind the border it is held.
        property real grip

        // Behind the beginning of the first part.
        function place(mouse): real {
            const x = area.mapToItem(root.parent, mouse.x, mouse.y).x;
            return root.LayoutMirroring.enabled ? root.parent.width - x : x;
        }

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.SplitHCursor
        onPressed: mouse => area.grip = area.place(mouse) - root.position
        onPositionChanged: mouse => {
            if (area.pressed)
                root.moveTo(area.place(mouse) - area.grip);
        }
        onDoubleClicked: root.putBack()
    }
}
