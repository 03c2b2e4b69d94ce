// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// What there is to know about the program.
Sheet {
    id: root

    required property AboutAdapter about

    title: qsTr("About Hearthmark")
    heading: ""

    Column {
        width: parent.width
        spacing: Theme.tightSpacing

        Heading {
            text: "Hearthmark"
        }

        Paragraph {
            text: qsTr("Version %1").arg(root.about.version)
        }

        Paragraph {
            text: qsTr("Free software under the MIT licence")
            color: Theme.colors.secondaryText
        }
    }

    Column {
        width: parent.width
        spacing: Theme.spacing

        Paragraph {
            text: qsTr("Your tasks are kept in")
            font.weight: Font.DemiBold
        }

        Paragraph {
            text: root.about.storeFolder
            wrapMode: Text.WrapAnywhere
        }

        PushButton {
            anchors.left: parent.left
            text: qsTr("Open Folder")
            onClicked: root.about.openStoreFolder()
        }

        Paragraph {
            text: root.about.fault
        }
    }

    Column {
        width: parent.width
        spacing: Theme.spacing

        Paragraph {
            text: qsTr("Made with")
            font.weight: Font.DemiBold
        }

        Paragraph {
            text: root.about.libraries
            color: Theme.colors.secondaryText
        }
    }

    buttons: PushButton {
        focus: true
        text: qsTr("Close")
        onClicked: root.close()
    }
}
