// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The header of a column, which sorts the table by it and, pressed again, the other way round.
BasicButton {
    id: root

    required property HistoryAdapter adapter
    required property int column
    readonly property bool isSorted: root.adapter?.sortedBy === root.column
    readonly property bool isAscending: root.adapter?.isAscending ?? false
    // Of numbers, which stand flush with each other.
    readonly property bool isAtEnd: root.column !== HistoryAdapter.Task

    implicitHeight: label.height + 2 * Theme.tightSpacing
    Accessible.role: Accessible.ColumnHeader
    Accessible.description: {
        if (!root.isSorted)
            return qsTr("not sorted by it");
        return root.isAscending ? qsTr("sorted, least first") : qsTr("sorted, most first");
    }
    onClicked: root.adapter.sortBy(root.column)

    Row {
        id: content

        readonly property real labelRoom: root.width - Theme.spacing - (arrow.visible ? arrow.width : 0)

        anchors.left: root.isAtEnd ? undefined : parent.left
        anchors.right: root.isAtEnd ? parent.right : undefined
        anchors.rightMargin: Theme.spacing // beside the scroll bar, as the numbers
        anchors.verticalCenter: parent.verticalCenter

        ElidedLabel {
            id: label

            width: Math.min(label.implicitWidth, content.labelRoom)
            text: root.text
            font.weight: root.isSorted ? Font.DemiBold : Font.Normal
            color: root.hovered ? Theme.colors.text : Theme.colors.secondaryText
            Accessible.ignored: true
        }

        Symbol {
            id: arrow

            anchors.verticalCenter: parent.verticalCenter
            visible: root.isSorted
            rotation: root.isAscending ? 180 : 0
            name: "chevron.down"
            size: Theme.symbolSize - 4
            color: Theme.colors.secondaryText
        }
    }

    FocusRing {
        anchors.margins: 0
        visible: root.activeFocus
    }
}
