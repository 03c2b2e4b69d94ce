// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A name in the list of a choice.
Item {
    id: root

    required property int index
    required property string modelData
    readonly property bool isCurrent: root.ListView.isCurrentItem

    signal chosen

    implicitHeight: Theme.controlHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: root.modelData
    Accessible.focusable: true
    Accessible.onPressAction: root.chosen()

    Box {
        anchors.fill: parent
        anchors.margins: Theme.focusWidth
        radius: Theme.controlRadius
        visible: root.isCurrent
        color: Theme.colors.selectedContent
    }

    ElidedLabel {
        anchors.fill: parent
        anchors.leftMargin: Theme.spacing
        anchors.rightMargin: Theme.spacing
        verticalAlignment: Text.AlignVCenter
        text: root.modelData
        color: root.isCurrent ? Theme.colors.selectedText : Theme.colors.text
        Accessible.ignored: true
    }

    MouseArea {
        anchors.fill: parent
        onClicked: root.chosen()
    }
}
