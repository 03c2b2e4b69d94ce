// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A task of which nothing runs.
TaskListItemGroupBoxStyle {
    id: root

    required property string taskName
    required property string timeSpent

    Label {
        width: parent.width
        text: root.taskName
        font.pointSize: Theme.title3Size
        color: root.textColor
        elide: Text.ElideRight
        maximumLineCount: 1
        Accessible.ignored: true
    }

    Label {
        width: parent.width
        text: root.timeSpent
        color: root.detailColor
        Accessible.ignored: true
    }
}
