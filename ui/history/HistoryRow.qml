// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls

// A task in the history's table, in two lines where its columns need it.
Item {
    id: root

    required property int index
    required property string taskName
    required property string timeSpent
    required property string share
    required property string focuses
    required property string description
    required property bool ticks
    required property bool isStacked
    required property real numberWidth
    required property bool isMarked

    signal tapped

    implicitHeight: numbers.y + numbers.height + Theme.spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: root.taskName
    Accessible.description: root.description
    Accessible.focusable: true
    Accessible.onPressAction: root.tapped()

    Box {
        anchors.fill: parent
        radius: Theme.controlRadius
        color: area.containsMouse ? Theme.colors.rowHovered : "transparent"
    }

    ElidedLabel {
        id: name

        anchors.left: parent.left
        anchors.leftMargin: Theme.tightSpacing
        y: Theme.spacing
        width: root.width - Theme.tightSpacing - (root.isStacked ? Theme.tightSpacing : numbers.width + Theme.spacing)
        text: root.taskName
        isMarked: root.isMarked
        Accessible.ignored: true
    }

    Row {
        id: numbers

        anchors.right: parent.right
        y: root.isStacked ? name.y + name.height : name.y

        Repeater {
            model: [root.timeSpent, root.share, root.focuses]

            Label {
                id: number

                required property string modelData

                width: root.numberWidth
                rightPadding: number.LayoutMirroring.enabled ? 0 : Theme.spacing
                leftPadding: number.LayoutMirroring.enabled ? Theme.spacing : 0
                text: number.modelData
                horizontalAlignment: Text.AlignRight
                color: root.isStacked ? Theme.colors.secondaryText : Theme.colors.text
                Accessible.ignored: true
            }
        }
    }

    FocusRing {
        anchors.margins: 0
        visible: root.isMarked
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.tapped()
    }
}
