// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The dialogue about an update. Closing it, however, ends what goes on. Enter, where nothing else takes
// it, does what the sheet suggests.
Sheet {
    id: root

    required property UpdateAdapter updates

    function acceptOnEnter(event) {
        event.accepted = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        if (event.accepted)
            root.updates.accept();
    }

    title: root.updates.title
    visible: root.updates.presented
    onClosed: root.updates.dismiss()
    onKeyPressed: event => root.acceptOnEnter(event)

    Paragraph {
        text: root.updates.detail
    }

    PackagePlace {
        width: parent.width
        visible: root.updates.installCommand.length > 0
        updates: root.updates
    }

    ProgressBar {
        width: parent.width
        visible: !root.updates.isOffer && !root.updates.isOver
        text: root.title
        indeterminate: !root.updates.isDownload
        value: root.updates.progress
    }

    FocusFrame {
        width: parent.width
        height: Math.min(notes.contentHeight + notes.topMargin + notes.bottomMargin + 2 * notes.anchors.margins, Theme.editorMaximumHeight)
        visible: root.updates.hasNotes
        framed: notes

        TextScroller {
            id: notes

            anchors.fill: parent
            anchors.margins: Theme.focusWidth
            lines: root.updates.notes
            fontFamily: Application.font.family
            Accessible.name: qsTr("What is new")
        }
    }

    buttons: [
        PushButton {
            focus: root.updates.isOver
            text: root.updates.dismissText
            onClicked: root.updates.dismiss()
        },
        PushButton {
            visible: root.updates.isOffer
            focus: root.updates.isOffer
            look: PushButton.Primary
            text: qsTr("Install")
            onClicked: root.updates.install()
        }
    ]
}
