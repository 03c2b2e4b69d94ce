// SPDX-License-Identifier: MIT
import QtQuick

// The ground of something that takes the keyboard, with a border that shows whether that has it.
Rectangle {
    id: root

    required property Item framed
    property color usualBorder: Theme.colors.separator

    radius: Theme.radius
    color: Theme.colors.window
    border.width: root.framed.activeFocus ? Theme.focusWidth : 1
    border.color: root.framed.activeFocus ? Theme.colors.focus : root.usualBorder
}
