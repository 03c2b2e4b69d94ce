// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The focus of each of the last days as a bar; above them today's in words, beside the day that is
// pointed at. The Tab key comes to one bar, from which the arrow keys go on. Pressing a bar opens the history of its day.
Column {
    id: root

    required property OverviewAdapter overview
    property real barsHeight: Theme.chartHeight
    property FocusBar pointedAt
    // Of the bar that the keyboard is or was on.
    property int daysAgo: 0
    readonly property int walkedTo: days.count - 1 - root.daysAgo
    // Found anew when the days of another task have been made.
    readonly property FocusBar walked: days.made > 0 ? days.itemAt(root.walkedTo) as FocusBar : null
    readonly property FocusBar shown: root.pointedAt ? root.pointedAt : bars.activeFocus ? root.walked : null

    function point(bar: FocusBar) {
        if (bar.hovered)
            root.pointedAt = bar;
        else if (root.pointedAt === bar)
            root.pointedAt = null;
    }

    function enter() {
        bars.forceActiveFocus(Qt.TabFocusReason);
    }

    function walk(step: int) {
        root.daysAgo = Math.max(0, Math.min(root.daysAgo - step, days.count - 1));
    }

    function walkOnKey(event) {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            root.walk(event.key === Qt.Key_Home ? -days.count : days.count);
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
            text: root.shown?.text ?? qsTr("The last 14 days")
            color: Theme.colors.secondaryText
            Accessible.ignored: true
        }
    }

    // A bar that goes because the days become another task's leaves the focus here, for its successor.
    FocusScope {
        id: bars

        width: parent.width
        height: root.barsHeight
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Focus of the last 14 days")
        Keys.onLeftPressed: root.walk(root.LayoutMirroring.enabled ? 1 : -1)
        Keys.onRightPressed: root.walk(root.LayoutMirroring.enabled ? -1 : 1)
        Keys.onPressed: event => root.walkOnKey(event)

        Row {
            id: row

            anchors.fill: parent
            spacing: Theme.tightSpacing

            Repeater {
                id: days

                property int made: 0

                model: root.overview?.days ?? null
                onItemAdded: ++days.made

                FocusBar {
                    id: bar

                    required property int index

                    width: (row.width - (days.count - 1) * row.spacing) / days.count
                    height: row.height
                    isLit: bar.index === days.count - 1
                    focus: bar.index === root.walkedTo
                    activeFocusOnTab: bar.focus
                    onHoveredChanged: root.point(bar)
                    onTapped: root.overview.openDay(bar.index)
                }
            }
        }

        FocusRing {
            parent: root.walked
            visible: bars.activeFocus
            controlRadius: Theme.focusWidth
        }
    }
}
