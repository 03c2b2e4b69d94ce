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

    Paragraph {
        text: qsTr("If no installer opens, this command in a terminal installs it:")
    }

    FocusFrame {
        width: parent.width
        height: command.height + 2 * Theme.spacing
        framed: command

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

    Paragraph {
        text: root.updates.fault
    }
}
