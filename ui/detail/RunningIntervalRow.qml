// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A running interval of the detail pane, to be read from afar.
DeletableRow {
    id: root

    required property int index
    required property string timeSpent
    required property real progress
    readonly property bool ticks: true

    signal editRequested

    implicitHeight: box.implicitHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.ListItem
    Accessible.name: root.timeSpent
    Accessible.focusable: true
    onKeyOfEditing: root.editRequested()

    IntervalsItemGroupBoxStyle {
        id: box

        width: parent.width
        row: root
        text: root.timeSpent
        symbolSize: Theme.largeSymbolSize
        textSize: Theme.displaySize
        isOneLine: true
        onEditRequested: root.editRequested()
        bottomPadding: 2 * Theme.spacing + bar.height
    }

    IntervalProgress {
        id: bar

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        progress: root.progress
    }
}
