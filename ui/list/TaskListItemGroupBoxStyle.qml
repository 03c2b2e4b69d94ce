// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The box of a task in the list: its name, its time, and what else there is, one below the other.
Box {
    id: root

    required property DeletableRow row
    required property bool isSelected
    required property string taskName
    required property string timeSpent
    // What a search found, in styled text: the name with it, and a line of a note. Empty for none.
    required property string markedName
    required property string foundLine
    readonly property color textColor: root.isSelected ? Theme.colors.selectedText : Theme.colors.text
    readonly property color detailColor: root.isSelected ? Theme.colors.selectedText : Theme.colors.secondaryText
    readonly property alias contentWidth: column.width
    default property alias content: column.data

    implicitHeight: column.height + 2 * Theme.spacing
    radius: Theme.radius
    color: root.isSelected ? Theme.colors.selectedContent : root.row.hovered ? Theme.colors.rowHovered : Theme.colors.window

    FocusRing {
        visible: root.row.focusVisible
        controlRadius: Theme.radius
    }

    Column {
        id: column

        x: Theme.spacing
        y: Theme.spacing
        width: root.width - 2 * Theme.spacing
        spacing: 2

        ElidedLabel {
            width: parent.width
            text: root.markedName || root.taskName
            textFormat: root.markedName === "" ? Text.PlainText : Text.StyledText
            font.pointSize: Theme.title3Size
            color: root.textColor
            isMarked: root.row.isWalkedTo
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            visible: root.foundLine !== ""
            text: root.foundLine
            textFormat: Text.StyledText
            elide: Text.ElideRight
            maximumLineCount: 1
            color: root.detailColor
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            text: root.timeSpent
            color: root.detailColor
            Accessible.ignored: true
        }
    }
}
