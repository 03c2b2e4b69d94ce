// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// A part of the home screen by itself, on what a fake tells it, or the home screen in its other layout.
// One of the adapters is set.
Window {
    id: root

    property HomeAdapter home
    property AddTaskAdapter addTask
    property ShareContainerAdapter share
    property TaskListAdapter tasks
    required property bool isDark

    color: Theme.colors.sidebar

    Binding {
        target: Theme
        property: "isDark"
        value: root.isDark
    }

    Repeater {
        model: root.home ? 1 : 0

        NewHomeView {
            anchors.fill: parent
            focus: true
            home: root.home
        }
    }

    Repeater {
        model: root.tasks ? 1 : 0

        TaskListView {
            anchors.fill: parent
            adapter: root.tasks
        }
    }

    AddTaskView {
        visible: root.addTask !== null
        adapter: root.addTask
    }

    ShareContainerView {
        visible: root.share !== null
        adapter: root.share
    }
}
