// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The task list with the menu of its rows. Empty until there is a state to show.
FocusScope {
    id: root

    required property TaskListAdapter adapter
    readonly property alias atTop: list.atYBeginning
    readonly property bool isEmpty: root.adapter.loaded && list.currentIndex < 0

    // Of the selected task.
    signal renameRequested

    function showNewest() {
        const row = root.adapter.newestRow();
        if (row >= 0)
            list.showTask(root.adapter.rows.taskNearest(row));
    }

    LoadedTaskListView {
        id: list

        anchors.fill: parent
        visible: root.adapter.loaded
        focus: true
        rows: root.adapter.rows
        onRenameRequested: root.renameRequested()
        onMenuRequested: (row, position) => (menu.part() as DeleteMenu).openFor(row, position)
    }

    Connections {
        target: root.adapter
        function onStateShown() {
            list.keepTaskCurrent();
        }
    }

    LazyPart {
        id: menu

        file: Qt.resolvedUrl("DeleteMenu.qml")
    }
}
