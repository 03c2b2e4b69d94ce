// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A running interval of the detail pane, to be read from afar.
BoxRow {
    id: root

    required property real progress
    readonly property bool ticks: true

    symbol: "clock"
    symbolSize: Theme.largeSymbolSize
    textSize: Theme.displaySize
    isOneLine: true
    bottomPadding: 2 * Theme.spacing + bar.height

    IntervalProgress {
        id: bar

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        progress: root.progress
    }
}
