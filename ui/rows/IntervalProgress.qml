// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// How far a running interval is on its way to its maximum, as a thin bar.
Item {
    id: root

    required property real progress
    property color color: Theme.colors.accent
    property color trackColor: Theme.colors.track

    // What assistive programs ask a progress bar for.
    readonly property real value: root.progress
    readonly property real minimumValue: 0
    readonly property real maximumValue: 1

    implicitHeight: Theme.progressHeight
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Progress")

    Box {
        anchors.fill: parent
        radius: height / 2
        color: root.trackColor
    }

    Box {
        anchors.left: parent.left
        width: Math.max(height, Math.round(root.progress * root.width))
        height: parent.height
        radius: height / 2
        color: root.color
    }
}
