// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A button with a text that is so or not. Pressed, it asks for the other, and whoever shows it decides.
BasicButton {
    id: root

    required property bool isChecked

    implicitWidth: box.width + Math.ceil(label.implicitWidth) + 3 * Theme.spacing
    implicitHeight: Theme.controlHeight
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: root.isChecked
    Accessible.onToggleAction: root.press()

    Box {
        anchors.fill: parent
        radius: Theme.controlRadius
        color: root.down ? Theme.colors.buttonPressed : root.hovered && root.enabled ? Theme.colors.separator : "transparent"

        FocusRing {
            visible: root.activeFocus
        }
    }

    Box {
        id: box

        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.symbolSize
        height: Theme.symbolSize
        radius: Theme.controlRadius / 2
        color: root.isChecked && root.enabled ? Theme.colors.accent : Theme.colors.content
        borderWidth: root.isChecked && root.enabled ? 0 : 1
        borderColor: root.enabled ? Theme.colors.buttonBorder : Theme.colors.separator

        Symbol {
            anchors.centerIn: parent
            visible: root.isChecked
            size: Theme.symbolSize - 4
            name: "checkmark"
            color: root.enabled ? Theme.colors.accentText : Theme.colors.disabledText
        }
    }

    Label {
        id: label

        anchors.left: box.right
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        color: root.enabled ? Theme.colors.text : Theme.colors.disabledText
        Accessible.ignored: true
    }
}
