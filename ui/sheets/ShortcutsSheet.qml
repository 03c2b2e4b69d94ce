// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The keys that do something everywhere in the window.
Sheet {
    id: root

    title: qsTr("Keyboard Shortcuts")

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        Repeater {
            model: Shortcuts.all

            Item {
                id: line

                required property var modelData

                width: content.width
                height: action.height
                Accessible.role: Accessible.StaticText
                Accessible.name: line.modelData[0] + ": " + line.modelData[1]

                Label {
                    id: action

                    width: parent.width
                    text: line.modelData[0]
                    Accessible.ignored: true
                }

                Label {
                    anchors.right: parent.right
                    text: line.modelData[1]
                    color: Theme.colors.secondaryText
                    Accessible.ignored: true
                }
            }
        }
    }

    buttons: PushButton {
        focus: true
        text: qsTr("Close")
        onClicked: root.close()
    }
}
