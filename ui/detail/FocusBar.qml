// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A part of a chart: a day, or what else it shows. Pressing it asks for more of it.
Item {
    id: root

    required property string text
    required property double share
    // It stands out from the others.
    required property bool isLit
    property bool ticks: root.isLit
    readonly property alias hovered: area.containsMouse

    signal tapped

    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.focusable: true
    Accessible.onPressAction: root.tapped()
    Keys.onReturnPressed: root.tapped()
    Keys.onEnterPressed: root.tapped()
    Keys.onSpacePressed: root.tapped()

    Box {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Math.max(Theme.focusWidth, Math.round(root.share * root.height))
        radius: Theme.focusWidth
        color: root.hovered || root.isLit ? Theme.colors.accent : Theme.colors.scrollBar
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.tapped()
    }
}
