// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

// While it is open a press elsewhere closes it and does nothing else.
T.Menu {
    id: root

    implicitWidth: Math.max(implicitBackgroundWidth, contentWidth + leftPadding + rightPadding)
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.tightSpacing
    padding: Theme.tightSpacing
    modal: true
    dim: false
    focus: true

    delegate: ContextMenuItem {}

    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false
    }

    background: Item {
        implicitWidth: Theme.menuWidth

        Rectangle {
            anchors.fill: parent
            anchors.topMargin: 1
            anchors.bottomMargin: -2
            radius: Theme.radius
            color: Theme.colors.separator
        }

        Rectangle {
            anchors.fill: parent
            radius: Theme.radius
            color: Theme.colors.content
            border.width: 1
            border.color: Theme.colors.buttonBorder
        }
    }
}
