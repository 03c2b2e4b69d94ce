// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls

// The ground of something that takes the keyboard, with a border that shows whether that has it.
Box {
    id: root

    required property Item framed
    property color usualBorder: Theme.colors.separator

    radius: Theme.radius
    color: Theme.colors.window
    borderWidth: root.framed.activeFocus ? Theme.focusWidth : 1
    borderColor: root.framed.activeFocus ? Theme.colors.focus : root.usualBorder
}
