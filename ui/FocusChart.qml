// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The focus of each of the last days as a bar, with today's in words above and, below, the day that
// is pointed at.
Column {
    id: root

    required property OverviewAdapter overview
    property FocusBar pointedAt

    function point(bar: FocusBar) {
        if (bar.hovered)
            root.pointedAt = bar;
        else if (root.pointedAt === bar)
            root.pointedAt = null;
    }

    spacing: Theme.spacing

    Label {
        text: qsTr("Today: %1").arg(root.overview?.today ?? "")
        font.weight: Font.DemiBold
    }

    Row {
        id: bars

        width: parent.width
        height: Theme.chartHeight
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

    Label {
        text: root.pointedAt?.text ?? qsTr("The last 14 days")
        color: Theme.colors.secondaryText
        Accessible.ignored: true
    }
}
