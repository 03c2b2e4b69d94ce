// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Offers to undo what was just deleted, for as long as that is possible.
FocusScope {
    id: root

    required property UndoAdapter adapter
    required property real maximumWidth

    implicitWidth: content.implicitWidth + Theme.wideSpacing + Theme.spacing
    implicitHeight: content.implicitHeight + 2 * Theme.spacing
    visible: root.adapter.presented
    Accessible.role: Accessible.Notification
    Accessible.name: root.adapter.text

    Box {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.colors.text
    }

    Row {
        id: content

        anchors.left: parent.left
        anchors.leftMargin: Theme.wideSpacing
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.wideSpacing

        ElidedLabel {
            width: Math.min(Math.ceil(implicitWidth), Theme.sheetWidth - Theme.pageMargin, root.maximumWidth - undoButton.width - 2 * content.spacing - Theme.spacing)
            anchors.verticalCenter: parent.verticalCenter
            text: root.adapter.text
            color: Theme.colors.content
            isMarked: root.activeFocus
            Accessible.ignored: true
        }

        PushButton {
            id: undoButton

            ringColor: Theme.colors.content
            text: qsTr("Undo")
            onClicked: root.adapter.undo()
        }
    }
}
