// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// What stands above a task's other intervals: its name and time, the buttons that start a focus, and
// the running intervals.
FocusScope {
    id: root

    required property TaskDetailAdapter adapter
    required property OverviewAdapter overview

    signal reached
    signal menuRequested(row: DeletableRow, position: point)

    function reportFocus() {
        if (root.activeFocus)
            root.reached();
    }

    onActiveFocusChanged: root.reportFocus()
    implicitHeight: content.height + Theme.spacing

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        Label {
            x: Theme.pageMargin
            width: parent.width - 2 * Theme.pageMargin
            text: root.adapter.taskName
            font.pointSize: Theme.titleSize
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
            maximumLineCount: Theme.nameMaximumLineCount
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }

        Label {
            x: Theme.pageMargin
            text: root.adapter.totalTimeSpent
            font.pointSize: Theme.title3Size
            color: Theme.colors.secondaryText
        }

        FocusChart {
            x: Theme.pageMargin
            width: Math.min(Theme.chartWidth, parent.width - 2 * Theme.pageMargin)
            overview: root.overview
        }

        SectionTitle {
            text: qsTr("Start a focus")
        }

        Row {
            x: Theme.pageMargin
            spacing: Theme.spacing

            PushButton {
                visible: root.adapter.shortFocusText.length > 0
                enabled: root.adapter.canStartFocus
                look: PushButton.Primary
                text: root.adapter.shortFocusText
                onClicked: root.adapter.startShortFocus()
            }

            PushButton {
                visible: root.adapter.longFocusText.length > 0
                enabled: root.adapter.canStartFocus
                look: PushButton.Primary
                text: root.adapter.longFocusText
                onClicked: root.adapter.startLongFocus()
            }
        }

        SectionTitle {
            text: qsTr("Running interval(s)")
        }

        Repeater {
            model: root.adapter.runningIntervals

            BoxRow {
                id: row

                required property int index
                required property string timeSpent

                width: content.width
                symbol: "clock"
                text: row.timeSpent
                activeFocusOnTab: true
                onDeletionRequested: root.adapter.runningIntervals.deleteRow(row.index)
                onMenuRequested: position => root.menuRequested(row, position)
            }
        }

        SectionTitle {
            text: qsTr("Other invervals") // the program's own spelling
        }
    }
}
