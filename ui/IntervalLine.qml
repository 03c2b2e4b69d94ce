// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A running interval inside its task's row.
DeletableRow {
    id: root

    required property int index
    required property string timeSpent
    required property string button
    required property color textColor

    signal buttonTapped

    implicitHeight: Math.max(label.implicitHeight, finish.visible ? finish.implicitHeight : 0) + Theme.tightSpacing
    activeFocusOnTab: !finish.visible
    Accessible.role: Accessible.StaticText
    Accessible.name: root.timeSpent

    Symbol {
        id: clock

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
        Accessible.description: root.timeSpent
        onClicked: root.buttonTapped()
    }

    FocusRing {
        visible: root.focusVisible
        border.color: root.textColor
    }
}
