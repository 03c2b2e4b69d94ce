// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The task list beside the selected task's detail, and over both the add-task sheet.
FocusScope {
    id: root

    required property HomeAdapter home

    Shortcut {
        sequence: "Ctrl+N"
        onActivated: root.home.displayAddSheet()
    }

    HomeSidebar {
        id: sidebar

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: Theme.sidebarWidth
        focus: true
        home: root.home
    }

    Rectangle {
        anchors.left: sidebar.right
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        color: Theme.colors.content

        Rectangle {
            width: 1
            height: parent.height
            color: Theme.colors.separator
        }

        Label {
            anchors.centerIn: parent
            visible: root.home.taskDetail === null
            text: qsTr("Select or create a task to see more.")
            font.pointSize: Theme.title3Size
            color: Theme.colors.secondaryText
        }

        // At most one, and none before a task is selected first.
        Repeater {
            model: root.home.taskDetail ? 1 : 0

            TaskDetailView {
                anchors.fill: parent
                anchors.leftMargin: 1
                adapter: root.home.taskDetail
            }
        }
    }

    AddTaskSheet {
        visible: root.home.addTask !== null
        adapter: root.home.addTask
        onClosed: root.home.dismissAddSheet()
    }
}
