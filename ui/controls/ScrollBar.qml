// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

T.ScrollBar {
    id: root

    implicitWidth: 6
    implicitHeight: 6
    padding: 1
    minimumSize: 0.06
    visible: root.size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        radius: 2
        color: root.pressed || root.hovered ? Theme.colors.scrollBarPressed : Theme.colors.scrollBar
    }
}
