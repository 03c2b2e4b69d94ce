// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A running interval inside its task's row.
DeletableRow {
    id: root

    required property int index
    required property string timeSpent
    required property string button
    required property real progress
    required property string taskName
    required property color textColor
    property alias progressColor: bar.color
    property alias trackColor: bar.trackColor

    readonly property bool ticks: true

    signal buttonTap

    implicitHeight: content.y + content.height + Theme.spacing + bar.height
    activeFocusOnTab: !finish.visible
    Accessible.role: Accessible.ListItem
    Accessible.name: root.timeSpent

    Item {
        id: content

        y: Theme.tightSpacing
        width: parent.width
        height: Math.max(label.implicitHeight, finish.visible ? finish.implicitHeight : 0)

        Symbol {
            id: clock

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            name: "clock"
            color: root.textColor
        }

        Label {
            id: label

            anchors.left: clock.right
            anchors.leftMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            text: root.timeSpent
            color: root.textColor
            Accessible.ignored: true
        }

        PushButton {
            id: finish

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: root.button.length > 0
            text: root.button
            Accessible.description: root.taskName // not the time: a button's texts are remembered
            onClicked: root.buttonTap()
        }
    }

    IntervalProgress {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width
        progress: root.progress
    }

    FocusRing {
        visible: root.focusVisible
        borderColor: root.textColor
    }
}
