// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Shows the whole of a note that is too long for the pane.
CopySheet {
    id: root

    property WholeNoteAdapter adapter

    title: qsTr("Note")
    onCopied: root.adapter.copy()

    FocusFrame {
        width: parent.width
        height: root.room - y
        framed: text

        TextScroller {
            id: text

            anchors.fill: parent
            anchors.margins: Theme.focusWidth
            focus: true
            lines: root.adapter?.lines ?? null
            fontFamily: Application.font.family
            lineEnd: ""
            Accessible.name: qsTr("The whole note")
        }
    }
}
