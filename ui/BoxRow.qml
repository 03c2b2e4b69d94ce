// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls

// An interval or a note of the detail pane, in its box.
DeletableRow {
    id: root

    required property string text
    property string symbol
    property real symbolSize: Theme.symbolSize
    property real textSize: Theme.bodySize
    property real bottomPadding: Theme.spacing
    // With the mouse.
    property bool isSelectable: false
    readonly property Item body: selectables.count > 0 ? selectables.itemAt(0) : label
    // Where it does not fit it gets smaller instead of going on in the next line.
    property bool isOneLine: false

    // The whole text is to be copied, of which this may show a part.
    signal copied

    implicitHeight: root.body.y + root.body.height + root.bottomPadding
    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.focusable: true

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.colors.window

        FocusRing {
            visible: root.focusVisible
            controlRadius: Theme.radius
        }
    }

    Symbol {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: label.verticalCenter
        visible: root.symbol.length > 0
        name: root.symbol
        size: root.symbolSize
        color: Theme.colors.secondaryText
    }

    Label {
        id: label

        y: Theme.spacing
        anchors.left: icon.visible ? icon.right : parent.left
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        visible: !root.isSelectable
        text: root.isSelectable ? "" : root.text
        font.pointSize: root.textSize
        fontSizeMode: root.isOneLine ? Text.HorizontalFit : Text.FixedSize
        minimumPointSize: Theme.bodySize
        wrapMode: root.isOneLine ? Text.NoWrap : Text.Wrap
        Accessible.ignored: true
    }

    // At most one; it takes more than a label.
    Repeater {
        id: selectables

        model: root.isSelectable ? 1 : 0

        MarkableText {
            x: Theme.spacing
            y: Theme.spacing
            width: root.width - 2 * Theme.spacing
            text: root.text
            row: root
            onAllCopied: root.copied()
        }
    }
}
