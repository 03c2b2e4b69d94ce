// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// A task with its running intervals.
TaskListItemGroupBoxStyle {
    id: root

    required property IntervalListModel intervalViewStates

    signal focused
    signal itemTapped
    signal menuRequested(line: DeletableRow, position: point)

    Repeater {
        model: root.intervalViewStates

        IntervalLine {
            id: line

            width: root.contentWidth
            taskName: root.taskName
            textColor: root.textColor
            progressColor: root.isSelected ? Theme.colors.selectedText : Theme.colors.accent
            trackColor: root.isSelected ? Theme.colors.selectedTrack : Theme.colors.track
            onFocused: root.focused()
            onTapped: root.itemTapped()
            onButtonTap: root.intervalViewStates.tapButton(line.index)
            onDeletionRequested: root.intervalViewStates.deleteRow(line.index)
            onMenuRequested: position => root.menuRequested(line, position)
        }
    }
}
