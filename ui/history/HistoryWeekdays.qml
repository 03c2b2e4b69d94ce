// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// How long the days of each weekday are, of those with a focus.
Column {
    id: root

    required property HistoryAdapter adapter

    spacing: Theme.tightSpacing

    ElidedLabel {
        width: parent.width
        text: qsTr("Average of the days with focuses")
        color: Theme.colors.secondaryText
    }

    Row {
        Repeater {
            model: root.adapter?.weekdays ?? []

            Column {
                id: weekday

                required property int index
                required property string modelData
                readonly property string mean: root.adapter.weekdayMeans[weekday.index]

                width: root.width / 7
                Accessible.role: Accessible.StaticText
                Accessible.name: weekday.modelData + ": " + weekday.mean

                Label {
                    width: parent.width
                    text: weekday.modelData
                    font.pointSize: Theme.bodySize * 0.85
                    color: Theme.colors.secondaryText
                    Accessible.ignored: true
                }

                ElidedLabel {
                    readonly property bool ticks: true

                    width: parent.width
                    text: weekday.mean
                    Accessible.ignored: true
                }
            }
        }
    }
}
