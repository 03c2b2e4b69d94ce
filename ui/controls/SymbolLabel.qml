// SPDX-License-Identifier: MIT
import QtQuick

// A text with an optional symbol before it, both centred. The control that shows it carries the name.
Item {
    id: root

    required property string symbol
    required property string text
    required property color color
    property alias spacing: row.spacing

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row

        anchors.centerIn: parent

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol.length > 0
            name: root.symbol
            color: root.color
        }

        Label {
            width: Math.ceil(implicitWidth) // else some versions of Qt centre it between two pixels
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: root.color
            Accessible.ignored: true
        }
    }
}
