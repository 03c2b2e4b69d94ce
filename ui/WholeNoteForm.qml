// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// The content of the sheet of a whole note.
FocusScope {
    id: root

    property WholeNoteAdapter adapter

    signal closed

    function copy() {
        root.adapter.copy();
        root.closed();
    }

    function copyOnControl(event) {
        event.accepted = event.key === Qt.Key_C && event.modifiers === Qt.ControlModifier;
        if (event.accepted)
            root.copy();
    }

    Keys.onPressed: event => root.copyOnControl(event)

    Label {
        id: title

        width: parent.width
        text: qsTr("Note")
        font.pointSize: Theme.title2Size
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    Rectangle {
        anchors.top: title.bottom
        anchors.bottom: buttons.top
        anchors.topMargin: Theme.wideSpacing
        anchors.bottomMargin: Theme.wideSpacing
        width: parent.width
        radius: Theme.radius
        color: Theme.colors.window
        border.width: text.activeFocus ? Theme.focusWidth : 1
        border.color: text.activeFocus ? Theme.colors.focus : Theme.colors.separator

        TextScroller {
            id: text

            anchors.fill: parent
            anchors.margins: Theme.focusWidth
            focus: true
            lines: root.adapter?.lines ?? null
            fontFamily: title.font.family
            lineEnd: ""
            Accessible.name: qsTr("The whole note")
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        spacing: Theme.spacing

        PushButton {
            text: qsTr("Close")
            onClicked: root.closed()
        }

        PushButton {
            look: PushButton.Primary
            symbol: "doc.on.doc"
            text: qsTr("Copy")
            onClicked: root.copy()
        }
    }
}
