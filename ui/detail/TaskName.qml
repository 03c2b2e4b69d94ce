// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The name of the selected task, with a button that edits it in its place, and one that marks it done.
Item {
    id: root

    required property TaskDetailAdapter adapter
    // Too narrow for both side by side.
    readonly property bool isStacked: done.width > root.width / 4

    // What had the keyboard before is gone, and the task, too.
    signal focusLost

    function edit() {
        editor.rememberFocus();
        root.adapter.edit.editName();
        editor.enter();
    }

    function giveFocusBack() {
        if (root.adapter.edit.canEdit)
            button.forceActiveFocus(Qt.OtherFocusReason);
        else
            root.focusLost();
    }

    width: parent.width
    height: root.adapter.edit.isName ? editor.height : root.isStacked ? done.y + done.height : heading.height

    HoverHandler {
        id: pointer
    }

    Heading {
        id: heading

        anchors.left: parent.left
        width: parent.width - button.width - Theme.spacing - (root.isStacked ? 0 : done.width + Theme.spacing)
        visible: !root.adapter.edit.isName
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
        visible: heading.visible && root.adapter.edit.canEdit
        isOffered: pointer.hovered
        text: qsTr("Edit name")
        onClicked: root.edit()
    }

    TextInPlace {
        id: editor

        width: parent.width
        height: editor.implicitHeight
        adapter: root.adapter.edit
        isOpen: root.adapter.edit.isName
        accessibleName: qsTr("Name of the task")
        savesByEnter: true
        pointSize: Theme.titleSize
        onFocusLost: root.giveFocusBack()
    }

    CheckButton {
        id: done

        x: root.isStacked === root.LayoutMirroring.enabled ? root.width - done.width : 0
        y: root.isStacked ? heading.height : button.y
        height: button.height
        visible: heading.visible
        enabled: root.adapter.canBeDone
        isChecked: root.adapter.isDone
        text: qsTr("Done")
        onClicked: root.adapter.toggleDone()
    }
}
