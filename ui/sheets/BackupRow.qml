// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A backup in the list: when it was made, and how much is in it.
Item {
    id: root

    required property int index
    required property string text
    required property string detail
    required property bool isSelected

    signal tapped(row: int)

    implicitHeight: date.height + 2 * Theme.spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.description: root.detail
    Accessible.selectable: true
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.tapped(root.index)

    Box {
        anchors.fill: parent
        radius: Theme.controlRadius
        color: root.isSelected ? Theme.colors.selectedContent : area.containsMouse ? Theme.colors.rowHovered : "transparent"
    }

    ElidedLabel {
        id: date

        anchors.left: parent.left
        anchors.right: detail.left
        anchors.margins: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        color: root.isSelected ? Theme.colors.selectedText : Theme.colors.text
        isMarked: root.isSelected && (root.ListView.view?.activeFocus ?? false)
        Accessible.ignored: true
    }

    Label {
        id: detail

        anchors.right: parent.right
        anchors.margins: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: root.detail
        color: root.isSelected ? Theme.colors.selectedText : Theme.colors.secondaryText
        Accessible.ignored: true
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.tapped(root.index)
    }
}
