// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A task of which nothing runs.
TaskListItemGroupBoxStyle {
    id: root

    required property string taskName
    required property string timeSpent

    ElidedLabel {
        width: parent.width
        text: root.taskName
        font.pointSize: Theme.title3Size
        color: root.textColor
        isMarked: root.row.isWalkedTo
        Accessible.ignored: true
    }

    Label {
        width: parent.width
        text: root.timeSpent
        color: root.detailColor
        Accessible.ignored: true
    }
}
