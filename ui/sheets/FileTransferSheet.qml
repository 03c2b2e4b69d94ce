// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Asks for a path where the desktop has no dialog, shows how far a file is, asks whether what was read
// is to be added, and tells what became of it. Enter, where nothing else takes it, agrees.
Sheet {
    id: root

    required property FileTransferAdapter transfer
    readonly property bool isAsking: root.transfer.isAsking
    readonly property bool hasOffer: root.transfer.acceptText !== ""

    function begin() {
        if (root.isAsking)
            path.text = root.transfer.path;
        path.focus = root.isAsking;
    }

    function acceptOnEnter(event) {
        event.accepted = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        if (event.accepted)
            root.transfer.enter();
    }

    title: root.transfer.title
    visible: root.transfer.presented
    onIsAskingChanged: root.begin()
    onClosed: root.transfer.dismiss()
    onKeyPressed: event => root.acceptOnEnter(event)

    Paragraph {
        text: root.transfer.detail
    }

    LineField {
        id: path

        width: parent.width
        visible: root.isAsking
        label: qsTr("File")
        fault: root.transfer.fault
        onEdited: root.transfer.path = path.text
    }

    ProgressBar {
        width: parent.width
        visible: root.transfer.isWorking
        text: root.title
        value: root.transfer.progress
    }

    buttons: [
        PushButton {
            focus: !root.isAsking && !root.hasOffer
            text: root.transfer.dismissText
            onClicked: root.transfer.dismiss()
        },
        PushButton {
            visible: root.hasOffer
            focus: !root.isAsking && root.hasOffer
            look: PushButton.Primary
            text: root.transfer.acceptText
            onClicked: root.transfer.accept()
        }
    ]
}
