// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The box of an interval of the detail pane: a clock beside its time.
Rectangle {
    id: root

    required property DeletableRow row
    required property string text
    property real symbolSize: Theme.symbolSize
    property real textSize: Theme.bodySize
    property real bottomPadding: Theme.spacing
    // Where it does not fit it gets smaller instead of going on in the next line.
    property bool isOneLine: false

    signal editRequested

    implicitHeight: label.y + label.height + root.bottomPadding
    radius: Theme.radius
    color: Theme.colors.window

    FocusRing {
        visible: root.row.focusVisible
        controlRadius: Theme.radius
    }

    Symbol {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: label.verticalCenter
        name: "clock"
        size: root.symbolSize
        color: Theme.colors.secondaryText
    }

    Label {
        id: label

        y: Theme.spacing
        anchors.left: icon.right
        anchors.leftMargin: Theme.spacing
        anchors.right: edit.left
        anchors.rightMargin: Theme.spacing
        text: root.text
        font.pointSize: root.textSize
        fontSizeMode: root.isOneLine ? Text.HorizontalFit : Text.FixedSize
        minimumPointSize: Theme.bodySize
        wrapMode: root.isOneLine ? Text.NoWrap : Text.Wrap
        Accessible.ignored: true
    }

    // Its key is F2 on the row.
    SymbolButton {
        id: edit

        anchors.right: parent.right
        anchors.rightMargin: Theme.tightSpacing
        anchors.verticalCenter: label.verticalCenter
        height: Math.min(implicitHeight, label.height + 2 * Theme.tightSpacing)
        drawn: root.row.hovered || edit.hovered || root.row.focusVisible
        activeFocusOnTab: false
        symbol: "pencil"
        text: qsTr("Edit interval")
        onClicked: root.editRequested()
    }
}
