// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The name of the selected task, with what edits it and what marks it done; nothing while it is being edited.
Item {
    id: root

    required property TaskDetailAdapter adapter

    signal editRequested

    width: parent.width
    height: heading.height
    visible: !root.adapter.edit.isName

    HoverHandler {
        id: pointer
    }

    Heading {
        id: heading

        anchors.left: parent.left
        width: parent.width - button.width - done.width - 2 * Theme.spacing
        text: root.adapter.taskName
        font.pointSize: Theme.titleSize
        maximumLineCount: Theme.nameMaximumLineCount
    }

    // After the first line, and with the ring around it no higher than that: above, the pane ends.
    EditButton {
        id: button

        width: button.height
        height: Theme.controlHeight - Theme.spacing
        anchors.left: parent.left
        anchors.leftMargin: Math.min(heading.contentWidth, heading.width) + Theme.spacing
        y: (heading.height / heading.lineCount - button.height) / 2
        visible: root.adapter.edit.canEdit
        isOffered: pointer.hovered
        text: qsTr("Edit name")
        onClicked: root.editRequested()
    }

    CheckButton {
        id: done

        anchors.right: parent.right
        y: button.y
        height: button.height
        enabled: root.adapter.canBeDone
        isChecked: root.adapter.isDone
        text: qsTr("Done")
        onClicked: root.adapter.toggleDone()
    }
}
