// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Hearthmark.Controls

// How far something is, from 0 to 1, or that it goes on.
T.ProgressBar {
    id: root

    // What it is that goes on, for assistive programs.
    required property string text
    // Of the bar that goes to and fro while it is not known how far it is.
    property real sweep

    implicitWidth: Theme.sheetWidth
    implicitHeight: Theme.spacing

    Accessible.role: Accessible.ProgressBar
    Accessible.name: root.text

    background: Box {
        radius: height / 2
        color: Theme.colors.separator
    }

    contentItem: Item {
        Box {
            readonly property real start: root.indeterminate ? root.sweep * (parent.width - width) : 0

            x: root.mirrored ? parent.width - width - start : start
            width: root.indeterminate ? parent.width / 4 : Math.max(parent.height, root.position * parent.width)
            height: parent.height
            radius: height / 2
            color: Theme.colors.accent
        }
    }

    SequentialAnimation on sweep {
        running: root.indeterminate && root.visible
        loops: Animation.Infinite

        NumberAnimation {
            to: 1
            duration: 1000
            easing.type: Easing.InOutSine
        }

        NumberAnimation {
            to: 0
            duration: 1000
            easing.type: Easing.InOutSine
        }
    }
}
