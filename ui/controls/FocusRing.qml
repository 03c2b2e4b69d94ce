// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// Drawn around the control it fills, with a gap, so that it shows on any ground.
Box {
    id: root

    property real controlRadius: Theme.controlRadius
    readonly property int gap: Theme.focusWidth + 1

    anchors.fill: parent
    anchors.margins: -root.gap
    radius: root.controlRadius + root.gap
    color: "transparent"
    borderWidth: Theme.focusWidth
    borderColor: Theme.colors.focus
}
