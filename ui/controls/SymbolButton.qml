// SPDX-License-Identifier: MIT
import QtQuick

// A button that shows a symbol alone; its text is what assistive programs read out.
BasicButton {
    id: root

    required property string symbol
    property bool isSeen: true

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight

    Rectangle {
        anchors.fill: parent
        visible: root.isSeen
        radius: Theme.controlRadius
        color: root.down ? Theme.colors.buttonPressed : root.hovered ? Theme.colors.separator : "transparent"

        FocusRing {
            visible: root.activeFocus
        }
    }

    Symbol {
        anchors.centerIn: parent
        visible: root.isSeen
        name: root.symbol
        color: root.enabled ? Theme.colors.text : Theme.colors.disabledText
    }
}
