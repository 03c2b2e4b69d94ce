// SPDX-License-Identifier: MIT
import QtQuick

// A monochrome picture drawn in the given opaque colour.
Image {
    id: root

    required property string name
    required property color color
    property real size: Theme.symbolSize

    source: root.name.length > 0 ? `image://symbols/${root.name}/${root.color.toString().slice(1)}` : ""
    sourceSize.width: root.size
    sourceSize.height: root.size
    width: root.size
    height: root.size
    Accessible.ignored: true
}
