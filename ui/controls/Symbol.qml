// SPDX-License-Identifier: MIT
import QtQuick

// A monochrome picture drawn in the given opaque colour.
Image {
    id: root

    required property string name
    required property color color

    source: root.name.length > 0 ? `image://symbols/${root.name}/${root.color.toString().slice(1)}` : ""
    sourceSize.width: Theme.symbolSize
    sourceSize.height: Theme.symbolSize
    width: Theme.symbolSize
    height: Theme.symbolSize
    Accessible.ignored: true
}
