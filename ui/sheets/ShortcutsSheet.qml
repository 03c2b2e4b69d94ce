// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Hearthmark.Controls

// The keys that do something everywhere in the window.
Sheet {
    id: root

    title: qsTr("Keyboard Shortcuts")

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        Repeater {
            model: [
                [qsTr("Add a task"), "Ctrl+N"],
                [qsTr("Start a focus of 30 minutes"), "Ctrl+1"],
                [qsTr("Start a focus of an hour"), "Ctrl+2"],
                [qsTr("Finish the newest focus"), "Ctrl+F"],
                [qsTr("Add a note"), "Ctrl+Shift+N"],
                [qsTr("Share the task"), "Ctrl+E"],
                [qsTr("Save the name or note"), "Ctrl+Enter"],
                [qsTr("Show the marked task"), qsTr("Enter")],
                [qsTr("Open the menu of the marked row"), qsTr("Menu")],
                [qsTr("Go to the first or last row"), qsTr("Home, End")],
                [qsTr("Go a page up or down"), qsTr("Page Up, Page Down")],
                [qsTr("Delete the marked row"), qsTr("Delete")],
                [qsTr("Undo a deletion"), "Ctrl+Z"],
                [qsTr("Close a sheet or a menu"), qsTr("Escape")],
                [qsTr("Show this list"), "F1"],
                [qsTr("Quit"), "Ctrl+Q"]
            ]

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
