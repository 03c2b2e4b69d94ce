// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Another layout of the home screen, for comparison: the list with its button, and beside it the task or
// what to do for one.
FocusScope {
    id: root

    required property HomeAdapter home

    Rectangle {
        id: column

        width: Theme.sidebarWidth
        height: parent.height
        color: Theme.colors.sidebar

        TaskListView {
            anchors.fill: parent
            anchors.bottomMargin: addButton.height + 2 * Theme.spacing
            focus: true
            adapter: root.home.taskList
        }

        PushButton {
            id: addButton

            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.spacing
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: "plus"
            text: qsTr("Add Task")
            onClicked: root.home.displayAddSheet()
        }
    }

    Rectangle {
        anchors.left: column.right
        anchors.right: parent.right
        height: parent.height
        color: Theme.colors.content

        Label {
            anchors.centerIn: parent
            visible: root.home.taskDetail === null
            text: qsTr("Select or create a task to see more.")
            font.pointSize: Theme.title3Size
            color: Theme.colors.secondaryText
        }

        Repeater {
            model: root.home.taskDetail ? 1 : 0

            TaskDetailView {
                anchors.fill: parent
                home: root.home
                screen: root
            }
        }
    }

    AddTaskView {
        visible: root.home.isAddSheetDisplayed
        adapter: root.home.addTask
        onClosed: root.home.dismissAddSheet()
    }
}
