// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// How a package is installed that nothing installs by itself: by a command, which can be marked and
// copied, or from its folder.
Column {
    id: root

    required property UpdateAdapter updates

    spacing: Theme.spacing

    Label {
        width: parent.width
        text: qsTr("If no installer opens, this command in a terminal installs it:")
        wrapMode: Text.Wrap
    }

    Rectangle {
        width: parent.width
        height: command.height + 2 * Theme.spacing
        radius: Theme.radius
        color: Theme.colors.window
        border.width: command.activeFocus ? Theme.focusWidth : 1
        border.color: command.activeFocus ? Theme.colors.focus : Theme.colors.separator

        ReadOnlyText {
            id: command

            x: Theme.spacing
            y: Theme.spacing
            width: parent.width - 2 * Theme.spacing
            text: root.updates.installCommand
            font.family: Theme.fixedFamily
            wrapMode: TextEdit.WrapAnywhere
            selectByMouse: true
            activeFocusOnPress: true
            activeFocusOnTab: true
            Accessible.focusable: true
        }
    }

    PushButton {
        anchors.left: parent.left
        text: qsTr("Open Folder")
        onClicked: root.updates.showPackage()
    }

    Label {
        width: parent.width
        visible: text.length > 0
        text: root.updates.fault
        wrapMode: Text.Wrap
    }
}
