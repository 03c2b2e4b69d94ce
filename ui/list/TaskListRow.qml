// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// A line of the task list: a section's header, which may fold, an empty section's hint, or a task. It stays
// the same while its task starts and finishes, and with it the keyboard and an open menu.
RowOfKind {
    id: root

    required property int index
    required property int kind
    required property string text
    required property string timeSpent
    required property string description
    required property bool isSelected
    required property bool isUnfolded
    required property string markedName
    required property string foundLine
    // Of a running task alone.
    required property IntervalListModel intervalViewStates

    readonly property bool ticks: root.intervalViewStates !== null
    readonly property bool isTask: root.kind === TaskListModel.Task || root.kind === TaskListModel.DoneTask
    readonly property bool isFold: root.kind === TaskListModel.Fold
    // The list cuts off what is outside of its rows.
    readonly property int ringRoom: Theme.tightSpacing

    signal lineMenuRequested(line: DeletableRow, position: point)

    shownKind: {
        if (root.isTask)
            return root.intervalViewStates ? running : nonRunning;
        return root.isFold ? fold : root.kind === TaskListModel.Header ? header : hint;
    }
    implicitHeight: root.content ? root.content.height + 2 * root.content.y : 0
    enabled: root.isTask || root.isFold
    isEditable: root.isTask
    isDeletable: root.isTask
    // A row cannot be ignored: newer views take that back when it comes into sight.
    Accessible.role: {
        if (root.isTask)
            return Accessible.ListItem;
        return root.isFold ? Accessible.Button : root.kind === TaskListModel.Header ? Accessible.Heading : Accessible.StaticText;
    }
    Accessible.name: root.text
    Accessible.description: root.description
    Accessible.focusable: root.enabled
    Accessible.selectable: root.isTask
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.tapped()

    Component {
        id: header

        SectionHeader {
            width: root.width
            text: root.text
            Accessible.ignored: true
        }
    }

    Component {
        id: fold

        SectionFold {
            width: root.width
            row: root
            isUnfolded: root.isUnfolded
            text: root.text
        }
    }

    Component {
        id: hint

        SectionHint {
            width: root.width
            text: root.text
            Accessible.ignored: true
        }
    }

    Component {
        id: running

        RunningTaskView {
            x: Theme.spacing
            y: root.ringRoom
            width: root.width - 2 * Theme.spacing
            row: root
            isSelected: root.isSelected
            intervalViewStates: root.intervalViewStates
            taskName: root.text
            timeSpent: root.timeSpent
            markedName: root.markedName
            foundLine: root.foundLine
            onFocused: root.focused()
            onItemTapped: root.tapped()
            onMenuRequested: (line, position) => root.lineMenuRequested(line, position)
        }
    }

    Component {
        id: nonRunning

        NonRunningTaskView {
            x: Theme.spacing
            y: root.ringRoom
            width: root.width - 2 * Theme.spacing
            row: root
            isSelected: root.isSelected
            taskName: root.text
            timeSpent: root.timeSpent
            markedName: root.markedName
            foundLine: root.foundLine
        }
    }
}
