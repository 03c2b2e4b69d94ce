// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The content of the about sheet.
SheetForm {
    id: root

    required property AboutAdapter about

    signal closed

    Column {
        width: parent.width
        spacing: Theme.tightSpacing

        Label {
            width: parent.width
            text: "Hearthmark"
            font.pointSize: Theme.title2Size
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        Label {
            width: parent.width
            text: qsTr("Version %1").arg(root.about.version)
        }

        Label {
            width: parent.width
            text: qsTr("Free software under the MIT licence")
            color: Theme.colors.secondaryText
        }
    }

    Column {
        width: parent.width
        spacing: Theme.spacing

        Label {
            width: parent.width
            text: qsTr("Your tasks are kept in")
            font.weight: Font.DemiBold
        }

        Label {
            width: parent.width
            text: root.about.storeFolder
            wrapMode: Text.WrapAnywhere
        }

        PushButton {
            anchors.left: parent.left
            text: qsTr("Open Folder")
            onClicked: root.about.openStoreFolder()
        }

        Label {
            width: parent.width
            visible: text.length > 0
            text: root.about.fault
            wrapMode: Text.Wrap
        }
    }

    Column {
        width: parent.width
        spacing: Theme.spacing

        Label {
            width: parent.width
            text: qsTr("Made with")
            font.weight: Font.DemiBold
        }

        Label {
            width: parent.width
            text: root.about.libraries
            color: Theme.colors.secondaryText
            wrapMode: Text.Wrap
        }
    }

    buttons: PushButton {
        focus: true
        text: qsTr("Close")
        onClicked: root.closed()
    }
}
