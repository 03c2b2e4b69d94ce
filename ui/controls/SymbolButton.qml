// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A button that shows a symbol alone; its text is what assistive programs read out.
BasicButton {
    id: root

    required property string symbol
    // What is not seen can still be used by assistive programs.
    property bool isSeen: true

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight

    Box {
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
