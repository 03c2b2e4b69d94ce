// SPDX-License-Identifier: MIT
import QtQuick

// The text of a menu item, cut where its key begins. The item carries the name.
Item {
    id: root

    required property string text
    required property string shortcutText
    required property color textColor
    required property color shortcutColor
    // The pointer or the keyboard is on the item.
    required property bool isMarked
    readonly property real gap: root.shortcutText.length > 0 ? Theme.wideSpacing : 0

    implicitWidth: label.implicitWidth + root.gap + shortcut.implicitWidth
    implicitHeight: label.implicitHeight

    ElidedLabel {
        id: label

        anchors.left: parent.left
        anchors.right: shortcut.left
        anchors.rightMargin: root.gap
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        color: root.textColor
        isMarked: root.isMarked
        Accessible.ignored: true
    }

    Label {
        id: shortcut

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.shortcutText
        color: root.shortcutColor
        Accessible.ignored: true
    }
}
