// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// One interval of the detail pane.
DeletableRow {
    id: root

    required property int index
    required property string timeSpent


    implicitHeight: content.height + 2 * Theme.spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: root.timeSpent
    Accessible.focusable: true

    Rectangle {
        x: Theme.pageMargin
        width: Math.min(Theme.pageWidth, root.width - 2 * Theme.pageMargin)
        height: root.height
        radius: Theme.radius
        color: Theme.colors.window

        Row {
            id: content

            anchors.verticalCenter: parent.verticalCenter
            x: Theme.spacing
            spacing: Theme.spacing

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: "clock"
                color: Theme.colors.secondaryText
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: root.timeSpent
                Accessible.ignored: true
            }
        }

        FocusRing {
            visible: root.focusVisible
            controlRadius: Theme.radius
        }
    }
}
