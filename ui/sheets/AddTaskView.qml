// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Asks for the name of a new task. Ctrl+Enter saves, since Enter alone begins a new line.
Sheet {
    id: root

    property AddTaskAdapter adapter
    property alias taskName: editor.text
    readonly property bool canSave: root.adapter?.canSave ?? false

    // Each presentation begins with an empty name.
    function beginAnew() {
        root.taskName = "";
        editor.focus = true;
    }

    function save() {
        if (!root.canSave)
            return;
        root.adapter.addTask(editor.textDocument);
        root.close();
    }

    function saveOnControl(event) {
        event.accepted = [Qt.Key_Return, Qt.Key_Enter].includes(event.key) && event.modifiers & Qt.ControlModifier;
        if (event.accepted)
            root.save();
    }

    title: qsTr("Add Task")
    onVisibleChanged: root.beginAnew()
    onKeyPressed: event => root.saveOnControl(event)

    EditorFrame {
        id: editor

        width: parent.width
        focus: true
        minHeight: 10
        maximumHeight: Theme.editorMaximumHeight
        accessibleName: qsTr("Task name")
        onTextChanged: root.adapter?.type(editor.textDocument)
    }

    buttons: [
        PushButton {
            text: qsTr("Close")
            onClicked: root.close()
        },
        PushButton {
            enabled: root.canSave
            look: PushButton.Primary
            symbol: "plus"
            text: qsTr("Save")
            onClicked: root.save()
        }
    ]
}
