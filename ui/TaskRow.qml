// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// One line of the task list: a section's header, an empty section's hint, or a task in its box. A
// running task lists its running intervals.
DeletableRow {
    id: root

    required property int index
    required property int kind
    required property string text
    required property string timeSpent
    required property string description
    required property bool isSelected
    required property IntervalListModel intervals

    readonly property bool ticks: lines.count > 0
    readonly property bool isTask: root.kind === TaskListModel.Task
    // The list cuts off what is outside of its rows.
    readonly property int ringRoom: Theme.tightSpacing
    readonly property bool isHeader: root.kind === TaskListModel.Header
    readonly property color textColor: root.isSelected ? Theme.colors.selectedText : Theme.colors.text
    readonly property color detailColor: root.isSelected ? Theme.colors.selectedText : Theme.colors.secondaryText

    signal lineMenuRequested(line: DeletableRow, position: point)

    implicitHeight: content.y + content.height + (root.isHeader ? Theme.tightSpacing : content.y)
    enabled: root.isTask
    Accessible.role: root.isTask ? Accessible.ListItem : root.isHeader ? Accessible.Heading : Accessible.StaticText
    Accessible.name: root.text
    Accessible.description: root.description
    Accessible.focusable: root.isTask
    Accessible.selectable: root.isTask
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.tapped()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.spacing
        anchors.rightMargin: Theme.spacing
        anchors.topMargin: root.ringRoom
        anchors.bottomMargin: root.ringRoom
        z: -1
        visible: root.isTask
        radius: Theme.radius
        color: root.isSelected ? Theme.colors.selectedContent : root.hovered ? Theme.colors.rowHovered : Theme.colors.window

        FocusRing {
            visible: root.focusVisible
            controlRadius: Theme.radius
        }
    }

    Column {
        id: content

        x: Theme.wideSpacing
        y: root.ringRoom + Theme.spacing
        width: root.width - 2 * content.x
        spacing: 2

        Label {
            width: parent.width
            topPadding: root.isHeader ? Theme.spacing : 0
            text: root.text
            font.pointSize: root.isHeader ? Theme.title2Size : Theme.title3Size
            font.weight: root.isHeader ? Font.DemiBold : Font.Normal
            color: root.kind === TaskListModel.Hint ? Theme.colors.secondaryText : root.textColor
            elide: root.isTask ? Text.ElideRight : Text.ElideNone
            maximumLineCount: root.isTask ? 1 : 4
            wrapMode: root.isTask ? Text.NoWrap : Text.Wrap
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            visible: root.isTask
            text: root.timeSpent
            color: root.detailColor
            Accessible.ignored: true
        }

        Repeater {
            id: lines

            model: root.intervals

            IntervalLine {
                id: line

                width: content.width
                taskName: root.text
                textColor: root.textColor
                progressColor: root.isSelected ? Theme.colors.selectedText : Theme.colors.accent
                trackColor: root.isSelected ? Theme.colors.selectedTrack : Theme.colors.track
                onFocused: root.focused()
                onTapped: root.tapped()
                onButtonTapped: root.intervals.tapButton(line.index)
                onDeletionRequested: root.intervals.deleteRow(line.index)
                onMenuRequested: position => root.lineMenuRequested(line, position)
            }
        }
    }
}
