// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// An interval or a note of the detail pane, in its box.
DeletableRow {
    id: root

    required property string text
    property string symbol

    implicitHeight: label.height + 2 * Theme.spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.focusable: true

    Rectangle {
        x: Theme.pageMargin
        width: Math.min(Theme.pageWidth, root.width - 2 * Theme.pageMargin)
        height: root.height
        radius: Theme.radius
        color: Theme.colors.window

        Symbol {
            id: icon

            x: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol.length > 0
            name: root.symbol
            color: Theme.colors.secondaryText
        }

        Label {
            id: label

            x: icon.visible ? icon.x + icon.width + Theme.spacing : Theme.spacing
            y: Theme.spacing
            width: parent.width - x - Theme.spacing
            text: root.text
            wrapMode: Text.Wrap
            maximumLineCount: Theme.noteMaximumLineCount
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        FocusRing {
            visible: root.focusVisible
            controlRadius: Theme.radius
        }
    }
}
