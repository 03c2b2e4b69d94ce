// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// How the time of a day, week, month or year was spent: its chart above the table of its tasks. Escape takes
// back a choice first, and then leaves the page.
FocusScope {
    id: root

    required property HomeAdapter home
    // On which the keys act that are told here.
    required property FocusScope screen
    readonly property HistoryAdapter adapter: root.home.history
    readonly property real margin: Math.min(Theme.pageMargin, root.width / 20)
    // Where there is no room for more, the rows get it.
    readonly property bool isLow: root.height < 50 * Theme.bodySize

    function leave() {
        if (!root.adapter.takeChoiceBack())
            root.home.closeHistory();
    }

    focus: true
    Keys.onEscapePressed: root.leave()
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("History")

    Shortcut {
        sequences: Shortcuts.historyBack
        enabled: root.screen.activeFocus && root.adapter.canGoBack
        onActivated: root.adapter.goBack()
    }

    Shortcut {
        sequences: Shortcuts.historyForward
        enabled: root.screen.activeFocus && root.adapter.canGoForward
        onActivated: root.adapter.goForward()
    }

    HistoryRanges {
        id: ranges

        x: root.margin
        y: Theme.spacing
        width: root.width - 2 * root.margin
        adapter: root.adapter
        transfer: root.home.fileTransfer
        onCloseRequested: root.home.closeHistory()
    }

    HistoryChart {
        id: chart

        anchors.top: ranges.bottom
        anchors.topMargin: root.isLow ? Theme.tightSpacing : Theme.wideSpacing
        x: root.margin
        width: ranges.width
        barsHeight: root.isLow ? Theme.smallChartHeight : 2 * Theme.chartHeight
        focus: true
        adapter: root.adapter
    }

    HistoryWeekdays {
        id: weekdays

        anchors.top: chart.bottom
        anchors.topMargin: visible ? Theme.spacing : 0
        x: root.margin
        width: ranges.width
        height: visible ? implicitHeight : 0
        visible: !root.isLow && root.adapter?.canExport && root.adapter.weekdays.length > 0
        adapter: root.adapter
    }

    HistoryTable {
        anchors.top: weekdays.bottom
        anchors.topMargin: root.isLow ? 0 : Theme.spacing
        anchors.bottom: parent.bottom
        x: root.margin
        width: ranges.width
        adapter: root.adapter
    }
}
