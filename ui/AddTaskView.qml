// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The content of the add-task sheet.
EditorForm {
    id: root

    property alias taskName: editor.text
    required property bool canSave

    signal typed(name: var)
    signal saved(name: var)
    signal closed

    // Each presentation begins with an empty name.
    function reset() {
        root.taskName = "";
        editor.focus = true;
    }

    function save() {
        if (root.canSave)
            root.saved(editor.textDocument);
    }

    implicitHeight: form.implicitHeight
    onVisibleChanged: root.reset()
    onSaveRequested: root.save()

    SheetForm {
        id: form

        anchors.fill: parent
        focus: true

        Label {
            width: parent.width
            text: qsTr("Add Task")
            font.pointSize: Theme.title2Size
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        EditorFrame {
            id: editor

            width: parent.width
            focus: true
            minHeight: 10
            maximumHeight: Theme.editorMaximumHeight
            accessibleName: qsTr("Task name")
            onTextChanged: root.typed(editor.textDocument)
        }

        buttons: [
            PushButton {
                text: qsTr("Close")
                onClicked: root.closed()
            },
            PushButton {
                enabled: root.canSave
                look: PushButton.Primary
                symbol: "plus"
                text: qsTr("Save")
                onClicked: root.saveRequested()
            }
        ]
    }
}
