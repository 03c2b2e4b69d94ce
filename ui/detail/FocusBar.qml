// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A day of the chart.
Item {
    id: root

    required property string text
    required property double share
    required property bool isToday
    readonly property bool ticks: root.isToday
    readonly property alias hovered: area.containsMouse

    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.focusable: true

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Math.max(Theme.focusWidth, Math.round(root.share * root.height))
        radius: Theme.focusWidth
        color: root.hovered || root.activeFocus || root.isToday ? Theme.colors.accent : Theme.colors.scrollBar
    }

    MouseArea {
        id: area

        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        hoverEnabled: true
    }
}
