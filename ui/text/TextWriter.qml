// SPDX-License-Identifier: MIT
import QtQuick
import Hearthmark.Controls
import Hearthmark.Ui

// Writes a text, which its adapter has at each moment, with buttons to save and to discard it. Ctrl+Enter,
// anywhere in it, saves, since Enter alone begins a new line; where it need not, that saves, too.
FocusScope {
    id: root

    required property WrittenText adapter
    property bool savesByEnter: false
    property bool canSave: true
    property alias saveText: saveButton.text
    property alias discardText: discardButton.text
    property alias minHeight: editor.minHeight
    property alias pointSize: editor.pointSize
    property alias accessibleName: editor.accessibleName
    readonly property alias textDocument: editor.textDocument
    readonly property bool isEmpty: editor.text.length === 0

    signal saved
    signal discarded
    // A part of this is to be brought on screen.
    signal revealed(top: real, bottom: real)

    function saveByKey(event) {
        event.accepted = root.savesByEnter || event.modifiers & Qt.ControlModifier;
        if (event.accepted)
            root.saved();
    }

    function focusText() {
        editor.forceActiveFocus(Qt.OtherFocusReason);
    }

    // Its height is known from here on, and not with the next frame.
    function layOut() {
        content.forceLayout();
    }

    // With the cursor at its end; all of it marked where it is rather replaced than gone on with.
    function beginAtEnd() {
        editor.moveCursorToEnd();
        if (root.savesByEnter)
            editor.selectAll();
        root.focusText();
    }

    // What the keyboard acts on; with the last line of the text, and with a button, all below.
    function revealFocus() {
        const line = editor.cursorRectangle;
        const top = editor.y + editor.inset + line.y;
        const isLastLine = line.y + 2 * line.height > editor.textSize.height;
        root.revealed(top, isLastLine || !editor.activeFocus ? root.height : top + line.height);
    }

    implicitHeight: content.height
    Keys.onReturnPressed: event => root.saveByKey(event)
    Keys.onEnterPressed: event => root.saveByKey(event)

    TextBinding {
        adapter: root.adapter
        document: editor.textDocument
    }

    Column {
        id: content

        width: parent.width
        spacing: Theme.spacing

        EditorFrame {
            id: editor

            width: parent.width
            focus: true
            keysBefore: root.savesByEnter ? root : null
            onCursorRectangleChanged: root.revealFocus()
        }

        Row {
            spacing: Theme.spacing

            PushButton {
                id: saveButton

                enabled: root.canSave
                look: PushButton.Primary
                text: qsTr("Save")
                onClicked: root.saved()
            }

            PushButton {
                id: discardButton

                onClicked: root.discarded()
            }
        }
    }
}
