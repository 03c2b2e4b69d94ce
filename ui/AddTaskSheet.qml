// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Asks for the name of a new task. Its content is made when it is first shown.
Sheet {
    id: root

    property AddTaskAdapter adapter

    function save(name: var) {
        root.adapter?.addTask(name);
        root.close();
    }

    title: qsTr("Add Task")

    contentItem: AddTaskView {
        focus: true
        canSave: root.adapter?.canSave ?? false
        onTyped: name => root.adapter?.type(name)
        onSaved: name => root.save(name)
        onClosed: root.close()
    }
}
