// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The content of the update sheet. Enter, where nothing else takes it, does what the sheet suggests.
SheetForm {
    id: root

    required property UpdateAdapter updates

    Keys.onReturnPressed: root.updates.accept()
    Keys.onEnterPressed: root.updates.accept()

    Label {
        id: title

        width: parent.width
        text: root.updates.title
        font.pointSize: Theme.title2Size
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }

    Label {
        width: parent.width
        visible: text.length > 0
        text: root.updates.detail
        wrapMode: Text.Wrap
    }

    PackagePlace {
        width: parent.width
        visible: root.updates.installCommand.length > 0
        updates: root.updates
    }

    ProgressBar {
        width: parent.width
        visible: !root.updates.isOffer && !root.updates.isOver
        text: title.text
        indeterminate: !root.updates.isDownload
        value: root.updates.progress
    }

    Rectangle {
        width: parent.width
        height: Math.min(notes.contentHeight + notes.topMargin + notes.bottomMargin + 2 * notes.anchors.margins, Theme.editorMaximumHeight)
        visible: root.updates.hasNotes
        radius: Theme.radius
        color: Theme.colors.window
        border.width: notes.activeFocus ? Theme.focusWidth : 1
        border.color: notes.activeFocus ? Theme.colors.focus : Theme.colors.separator

        TextScroller {
            id: notes

            anchors.fill: parent
            anchors.margins: Theme.focusWidth
            lines: root.updates.notes
            fontFamily: title.font.family
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
