// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// A running interval of the detail pane, to be read from afar.
DeletableRow {
    id: root

    required property int index
    required property string timeSpent
    required property real progress
    required property string began
    // Of a button that gives it more time; empty where it has no length.
    required property string extension
    readonly property bool ticks: true

    signal extended

    implicitHeight: box.implicitHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.ListItem
    Accessible.name: root.timeSpent
    Accessible.description: root.began
    Accessible.focusable: true
    isEditable: true

    IntervalsItemGroupBoxStyle {
        id: box

        width: parent.width
        row: root
        text: root.timeSpent
        began: root.began
        buttonText: root.extension
        buttonName: qsTr("Five more minutes")
        symbolSize: Theme.largeSymbolSize
        textSize: Theme.displaySize
        isOneLine: true
        bottomPadding: 2 * Theme.spacing + bar.height
        onPressed: root.extended()
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
