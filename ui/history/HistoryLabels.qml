// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// What stands below the bars of the history's chart. Screen readers have it with the bars.
Row {
    id: root

    required property HistoryBarModel model
    required property real barWidth

    Repeater {
        model: root.model

        Item {
            id: place

            required property string label

            width: root.barWidth
            height: text.height

            Label {
                id: text

                anchors.horizontalCenter: parent.horizontalCenter
                text: place.label
                font.pointSize: Theme.bodySize * 0.85
                color: Theme.colors.secondaryText
                Accessible.ignored: true
            }
        }
    }
}
