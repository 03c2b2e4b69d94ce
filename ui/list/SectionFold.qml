// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The header of a section of the task list that folds, which the row around it does when it is tapped.
Item {
    id: root

    required property DeletableRow row
    required property bool isUnfolded
    property alias text: header.text

    implicitHeight: header.implicitHeight

    SectionHeader {
        id: header

        anchors.left: parent.left
        anchors.leftMargin: Theme.wideSpacing
        width: Math.min(header.implicitWidth, root.width - mark.width - 2 * Theme.wideSpacing - Theme.spacing)
        leftPadding: 0
        rightPadding: 0
        Accessible.ignored: true
    }

    Symbol {
        id: mark

        anchors.left: header.right
        anchors.leftMargin: Theme.spacing
        y: header.topPadding + (header.height - header.topPadding - header.bottomPadding - mark.height) / 2
        mirror: LayoutMirroring.enabled
        name: root.isUnfolded ? "chevron.down" : "chevron.right"
        color: Theme.colors.text
    }

    // As wide as a task's box, without the room above that parts the sections.
    Item {
        x: Theme.spacing
        y: header.topPadding - Theme.tightSpacing
        width: root.width - 2 * Theme.spacing
        height: root.height - header.topPadding

        FocusRing {
            visible: root.row.focusVisible
            controlRadius: Theme.radius
        }
    }
}
