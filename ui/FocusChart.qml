// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The focus of each of the last days as a bar; above them today's in words, beside the day that is
// pointed at.
Column {
    id: root

    required property OverviewAdapter overview
    property real barsHeight: Theme.chartHeight
    property FocusBar pointedAt

    function point(bar: FocusBar) {
        if (bar.hovered)
            root.pointedAt = bar;
        else if (root.pointedAt === bar)
            root.pointedAt = null;
    }

    spacing: Theme.tightSpacing

    Item {
        width: parent.width
        height: today.height

        Label {
            id: today

            readonly property bool ticks: true

            anchors.left: parent.left
            text: qsTr("Today: %1").arg(root.overview?.today ?? "")
        }

        Label {
            anchors.right: parent.right
            text: root.pointedAt?.text ?? qsTr("The last 14 days")
            color: Theme.colors.secondaryText
            Accessible.ignored: true
        }
    }

    Row {
        id: bars

        width: parent.width
        height: root.barsHeight
        spacing: Theme.tightSpacing
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Focus of the last 14 days")

        Repeater {
            id: days

            model: root.overview?.days ?? null

            FocusBar {
                id: bar

                required property int index

                width: (bars.width - (days.count - 1) * bars.spacing) / days.count
                height: bars.height
                isToday: bar.index === days.count - 1
                onHoveredChanged: root.point(bar)
            }
        }
    }
}
