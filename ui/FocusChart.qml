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

    // Side by side, or where there is no room for that one below the other.
    Item {
        id: texts

        readonly property bool isStacked: texts.width < Theme.chartTextsWidth

        width: parent.width
        height: day.y + day.height

        Label {
            id: today

            readonly property bool ticks: true

            anchors.left: parent.left
            text: qsTr("Today: %1").arg(root.overview?.today ?? "")
        }

        Label {
            id: day

            y: texts.isStacked ? today.height : 0
            anchors.right: parent.right
            width: texts.isStacked ? parent.width : undefined
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
